// The rewriting evaluator: results, the kept traps, failures and their
// messages, the bracket checks, the operand readers and the name table.
#include "expression/evaluator.h"
#include "expression/functions.h"
#include "expression/normalise.h"
#include "expression/validate.h"
#include "tests/support/recording.h"
#include "expression/state.h"
#include "numeric/state.h"

#include <gtest/gtest.h>


namespace {

class 求值 : public ::testing::Test {
protected:
    void SetUp() override {
        清除计算状态();
        计算状态.高精度开关 = true;
        计算状态.角度单位 = 3;
        for (auto& v : 变量状态.字母变量) v = 数值(Decimal96());
    }
    void TearDown() override {
        清除计算状态();
        计算状态.角度单位 = 60;
    }
    交互记录作用域 盒;
};

struct 例 {
    const char16_t* 算式;
    const char16_t* 结果;
};

void 逐例(const std::initializer_list<例>& 表) {
    for (const auto& c : 表) {
        清除计算状态();
        const QString in = QString::fromUtf16(c.算式);
        EXPECT_EQ(表达式计算(in), QString::fromUtf16(c.结果)) << in.toStdString();
        EXPECT_EQ(计算状态.错误数, 0) << in.toStdString() << " " << 计算状态.错误记录.toStdString();
    }
}

TEST_F(求值, 四则与顺序) {
    逐例({
        {u"", u"0"},
        {u"5", u"5"},
        {u"  7  ", u"7"},
        {u"()", u"0"},
        {u"1+2*3", u"7"},
        {u"(1+2)*3", u"9"},
        {u"10-2-3", u"5"},
        {u"8/2/2", u"2"},
        {u"2*3\\4", u"2"},      // (2*3) rem 4: * / \ rank equally, left to right
        {u"2\\3*4", u"8"},
        {u"7\\3", u"1"},
        {u"-7\\3", u"-1"},
        {u"7.5\\2", u"1.5"},
        {u"1/3*3", u"0.9999999999999999999999999999"},
        {u"2*(0-3)", u"-6"},     // "2*-3" after the bracket is resolved
        {u"2*-3", u"-6"},
        {u"2--3", u"5"},
        {u"-2-3", u"-5"},
        {u"((2+3)*(4-1))/5", u"3"},
        {u"1E+20*1E+20", u"1E+40"},
        {u"2E3", u"2000"},
        {u"2+1E-5", u"2.00001"},
        {u"1E+30+1E+30", u"2E+30"},
    });
}

TEST_F(求值, 后缀运算) {
    逐例({
        {u"100%", u"1"},
        {u"5‰", u"0.005"},
        {u"-50%", u"-0.5"},
        {u"3!", u"6"},
        {u"-3!", u"-6"},
        {u"0!", u"1"},
        {u"26!", u"403291461126605635584000000"},
        {u"2.5!", u"2"},        // rounded to nearest, ties to even
        {u"3.5!", u"24"},
        {u"100%+3!", u"4"},     // "%" shortens the text, the "!" is passed by
        {u"2+3!", u"8"},
    });
}

TEST_F(求值, 乘方从左到右) {
    逐例({
        {u"2^3^2", u"64"},       // (2^3)^2
        {u"-3^2", u"9"},         // the sign belongs to the operand
        {u"2-3^2", u"-7"},
        {u"2^-1", u"0.5"},
        {u"2*-3^2", u"18"},
        {u"2^10", u"1024"},
        {u"4^0.5", u"2"},
        {u"2^(3^2)", u"512"},
    });
}

TEST_F(求值, 常数与变量) {
    变量状态.字母变量[字母序号(u'X')] = 数值(7);
    变量状态.字母变量[字母序号(u'E')] = 数值(3);
    变量状态.字母变量[字母序号(u'R')] = 数值(QStringLiteral("-5"));
    变量状态.字母变量[字母序号(u'Z')] = 数值();  // never set: the letter vanishes
    逐例({
        {u"X", u"7"},
        {u"2*X", u"14"},
        {u"X*X-X", u"42"},
        {u"2*E", u"6"},          // E behind an operator is the variable
        {u"2E3", u"2000"},       // E behind a digit stays an exponent
        {u"2-R", u"7"},
        {u"R^2", u"25"},
        {u"2Z", u"2"},
        {u"Π", u"3.1415926535897932384626433833"},
        {u"ε", u"2.7182818284590452353602874714"},
        {u"2*Π", u"6.2831853071795864769252867666"},
        {u"Π-Π", u"0"},
    });
}

TEST_F(求值, 函数弧度) {
    逐例({
        {u"SIN(0)", u"0"},
        {u"COS(0)", u"1"},
        {u"SIN0+COS0", u"1"},
        {u"LG(100)", u"2"},
        {u"LN(1)", u"0"},
        {u"ATAN(0)", u"0"},
        {u"ACOS(1)", u"0"},
        {u"ACOS(-1)", u"3.1415926535897932384626433833"},
        {u"SINH(0)", u"0"},
        {u"COSH(0)", u"1"},
        {u"TANH(0)", u"0"},
        {u"2*SIN(Π/2)", u"2"},
    });
}

TEST_F(求值, 函数精度计数) {
    // An exact inverse sine keeps its 29 digits; a general one falls to double.
    清除计算状态();
    EXPECT_EQ(表达式计算(QStringLiteral("ASIN(1)")), QStringLiteral("1.5707963267948966192313216916"));
    EXPECT_EQ(计算状态.可达有效位数, 29);
    EXPECT_EQ(计算状态.精度损失数, 0);
    清除计算状态();
    const QString r = 表达式计算(QStringLiteral("ASIN(0.5)"));
    EXPECT_EQ(计算状态.可达有效位数, 15);
    EXPECT_GE(计算状态.精度损失数, 1);
    EXPECT_NEAR(r.toDouble(), 0.5235987755982988, 1e-14);
    清除计算状态();
    表达式计算(QStringLiteral("LG(2)"));
    EXPECT_EQ(计算状态.可达有效位数, 15);
}

TEST_F(求值, 反函数角度单位) {
    struct 项 { int 单位; const char16_t* 算式; double 值; };
    const 项 表[] = {
        {100, u"ASIN(1)", 90.0},
        {60, u"ASIN(1)", 90.0},
        {100, u"ATAN(1)", 45.0},
        {60, u"ACOS(0.5)", 60.0},
        {60, u"ATAN(0.5)", 26.335418424},  // 26.565051177° packed as 26°33′54.184″
        {400, u"ATAN(1)", 45.0},            // stays in decimal degrees, not grads
        {3, u"ATAN(1)", 0.785398163397448},
    };
    for (const auto& c : 表) {
        清除计算状态();
        计算状态.角度单位 = c.单位;
        const QString r = 表达式计算(QString::fromUtf16(c.算式));
        EXPECT_EQ(计算状态.错误数, 0);
        EXPECT_NEAR(r.toDouble(), c.值, 1e-8) << c.单位 << " " << QString::fromUtf16(c.算式).toStdString();
    }
}

TEST_F(求值, 无穷大提示) {
    struct 项 { const char16_t* 算式; const char16_t* 提示; };
    const 项 表[] = {
        {u"CSC(0)", u"csc(x)为无穷大，采用近似计算....1E+28。"},
        {u"SEC(Π/2)", u"sec(x)为无穷大，采用近似计算....1E+28。"},
        {u"COTH(0)", u"cth(x)为无穷大，采用近似计算....1E+28。"},
    };
    for (const auto& c : 表) {
        清除计算状态();
        盒.记录器.记录.clear();
        // 1E+28 goes back through the text and fits the decimal.
        EXPECT_EQ(表达式计算(QString::fromUtf16(c.算式)), QStringLiteral("10000000000000000000000000000"));
        EXPECT_EQ(计算状态.错误数, 0);
        EXPECT_EQ(盒.记录器.文本列表(), QStringList{QString::fromUtf16(c.提示)});
    }
}

// Failures: the result is "1", 首个错误 as given, and nothing in a box
// unless the case names one.
struct 败例 {
    const char16_t* 算式;
    const char16_t* 首个错误;
    bool 有框;
};

TEST_F(求值, 失败与消息) {
    const 败例 表[] = {
        {u"O", u"表达式计算过程中：[ O ] 字符错误！返回1值。", false},
        {u"2*O", u"出错了！式中出现了英文O字母变量！请修改算式后计算。", false},
        {u"1/0", u" 1/0   除数为0错误！请修改算式后计算。", false},
        {u"27!", u"阶乘计算时数值太大，超出计算范围。", false},
        {u"-27!", u"阶乘计算时数值太大，超出计算范围。", false},
        {u"ABC", u"ABC  函数错误！请修改算式后计算。", false},
        {u"ABS(1)", u"ABS1 函数错误！请修改算式后计算。", false},
        {u"SQR(4)", u"SQR4 函数错误！请修改算式后计算。", false},
        {u"LG(0)", u"lg(x)的x 小于等于0错误。", false},
        {u"LN(-1)", u"ln(x)的x 小于等于0错误。", false},
        {u"ASIN(2)", u"Asin(x)中 x 大于1错误，计算结果无效。", false},
        {u"ASIN(-2)", u"Asin(x)中 x 小于-1错误，计算结果无效。", false},
        {u"ACOS(1.5)", u"Acos(x)中 x 大于1错误，计算结果无效。", false},
        {u"ASEC(1)", u"Asec(x)无意义，计算结果无效。", false},
        {u"ACSC(-1)", u"Acsc(x)无意义，计算结果无效。", false},
        {u"ASEC(0.5)", u"计算无括号表达式过程中，ASEC0.5出现超出计算范围错误！返回[1]。", false},
        {u"(1+2", u"(1+2 算式中--括号不能配对--错误,请修改算式！", true},
        {u"(1+2))", u"(1+2)) 算式中--括号不能配对--错误,请修改算式！", true},
        {u")1+2(", u") 算式中--括号顺序--错误,请修改算式！", true},
        {u"(1))+((2)", u"(1)) 算式中--括号顺序--错误,请修改算式！", true},
        {u"1+1.2.3", u"  进行[向后取数字]运算时， 1.2.3 数值超出计算范围，我无法计算！返回错误数值。", false},
        {u"1.2.3+1", u"  进行[向前取数字]运算时， 1.2.3 数值超出计算范围，我无法计算！返回错误信息。", false},
        {u"2*--3", u"  进行[向后取数字]运算时， --3 数值超出计算范围，我无法计算！返回错误数值。", false},
        {u"2^", u"  进行[向后取数字]运算时，  数值超出计算范围，我无法计算！返回错误数值。", false},
    };
    for (const auto& c : 表) {
        清除计算状态();
        盒.记录器.记录.clear();
        const QString in = QString::fromUtf16(c.算式);
        EXPECT_EQ(表达式计算(in), QStringLiteral("1")) << in.toStdString();
        EXPECT_GE(计算状态.错误数, 1) << in.toStdString();
        EXPECT_EQ(计算状态.首个错误, QString::fromUtf16(c.首个错误)) << in.toStdString();
        EXPECT_TRUE(计算状态.错误记录.endsWith(QStringLiteral("\r\n")));
        if (c.有框) { EXPECT_EQ(盒.记录器.文本列表(), QStringList{QString::fromUtf16(c.首个错误)}) << in.toStdString(); }
        else { EXPECT_TRUE(盒.记录器.记录.isEmpty()) << in.toStdString(); }
    }
}

TEST_F(求值, 读数细节进入记录) {
    清除计算状态();
    表达式计算(QStringLiteral("1+1.2.3"));
    EXPECT_EQ(计算状态.错误数, 1);  // the detail line is recorded but not counted
    EXPECT_TRUE(计算状态.错误记录.startsWith(QStringLiteral("1.2.3 表达式--小数点数太多--错误！请修改算式后计算。\r\n")))
        << 计算状态.错误记录.toStdString();
}

TEST_F(求值, 已有错误时不计算) {
    报告错误(QStringLiteral("earlier"));
    EXPECT_EQ(表达式计算(QStringLiteral("1+1")), QStringLiteral("1"));
    EXPECT_EQ(无括号表达式计算(QStringLiteral("2+2")), QStringLiteral("1"));
    EXPECT_EQ(计算状态.错误数, 1);
    EXPECT_EQ(计算状态.首个错误, QStringLiteral("earlier"));
}

// The traps of the typed-text road, kept as they are, through the whole
// chain the screens run.
TEST_F(求值, 整条路径的陷阱) {
    const 例 表[] = {
        {u"2乘以3", u"6"},        // "乘" maps first, the leftover "以" is dropped
        {u"6除以3", u"2"},
        {u"7余3", u"1"},
        {u"7求余3", u"1"},         // "余" maps first; "求" is dropped
        {u"-3^2", u"9"},
        {u"2^3^2", u"64"},
        {u"100%+3!", u"4"},
        {u"三点五乘二", u"7"},
        {u"１＋２", u"3"},
        {u"2(3)", u"6"},
        {u"3!!", u"6"},
        {u"5.", u"5"},
    };
    for (const auto& c : 表) {
        清除计算状态();
        const QString in = QString::fromUtf16(c.算式);
        const QString t = 表达式规整(算式字符规整(in));
        ASSERT_EQ(计算状态.错误数, 0) << in.toStdString() << " " << 计算状态.错误记录.toStdString();
        清除计算状态();
        EXPECT_EQ(表达式计算(t), QString::fromUtf16(c.结果)) << in.toStdString() << " → " << t.toStdString();
    }
}

TEST_F(求值, 名称表宽松查找) {
    struct 项 { const char16_t* 名; bool 表中; bool 函数; };
    const 项 表[] = {
        {u"SIN", true, true},  {u"COS", true, true},   {u"OS", true, false},   {u"IN", true, false},
        {u"SING", true, false}, {u"SIGN", false, false}, {u"ABS", true, false}, {u"ACOTH", true, false},
        {u"X", true, false},   {u"O", false, false},   {u"XY", false, false},  {u"LG", true, true},
        {u"sin", false, false}, {u"ASEC", true, true},
    };
    for (const auto& c : 表) {
        const QString w = QString::fromUtf16(c.名);
        EXPECT_EQ(名称表中有(w), c.表中) << w.toStdString();
        EXPECT_EQ(是函数名(w), c.函数) << w.toStdString();
    }
}

TEST_F(求值, 符号整理) {
    struct 项 { const char16_t* 入; const char16_t* 整理; const char16_t* 合并; };
    const 项 表[] = {
        {u"", u"0", u"0"},
        {u"   ", u"0", u"0"},
        {u"1 + 2", u"1+2", u"1+2"},
        {u"1++2", u"1+2", u"1+2"},
        {u"1-+2", u"1-2", u"1-2"},
        {u"1--2", u"1--2", u"1+2"},
        {u"1+-2", u"1+-2", u"1-2"},
        {u"1+++2", u"1++2", u"1++2"},   // one pass from the left
        {u"1+--2", u"1+--2", u"1++2"},  // three signs fold only in part
        {u"sin　x", u"SINX", u"SINX"},
        {u"1-+-+2", u"1--2", u"1+2"},
        {u"2*π+ε", u"2*Π+Ε", u"2*Π+Ε"},
    };
    for (const auto& c : 表) {
        const QString in = QString::fromUtf16(c.入);
        EXPECT_EQ(整理符号(in), QString::fromUtf16(c.整理)) << in.toStdString();
        EXPECT_EQ(合并正负号(in), QString::fromUtf16(c.合并)) << in.toStdString();
    }
}

// Paths the rewriting takes short: the scans of products and powers go on
// behind the last value written, the sums skip folding a tidy text, plain
// number texts are read straight into the decimal, and a bracket-free text
// that is one plain number is read without the passes.
TEST_F(求值, 改写捷径) {
    逐例({
        {u"2*3*4/2\\5", u"2"},
        {u"1+2*3^2^2*2", u"325"},
        {u"5--3+-2-+1", u"5"},
        {u"5+--3", u"8"},
        {u"1-+-2", u"3"},
        {u"1+2-3+4-5+6", u"5"},
        {u"π-Π", u"0"},
        {u"ε*2", u"5.4365636569180904707205749428"},
        {u"1.50*2", u"3"},
        {u"-0.0+5", u"5"},
        {u"0.10+0.20", u"0.3"},
        {u"(+5)*2", u"10"},       // a bracket holding a plain number is read at once
        {u"(.5)+(5.)", u"5.5"},
        {u"( -0 )", u"0"},
        {u"(+-5)", u"-5"},        // two signs: not a plain number, the passes fold them
    });
    struct 项 { const char16_t* 算式; const char16_t* 结果; int 位数; };
    const 项 表[] = {
        {u"1.2345678901234567890123456789*1", u"1.2345678901234567890123456789", 29},
        {u"99999999999999999999999999999+1", u"1E+29", 15},
        {u"0.00000000000000000000000000012345*1", u"1.2345E-28", 15},
    };
    for (const auto& c : 表) {
        清除计算状态();
        EXPECT_EQ(表达式计算(QString::fromUtf16(c.算式)), QString::fromUtf16(c.结果));
        EXPECT_EQ(计算状态.可达有效位数, c.位数) << QString::fromUtf16(c.算式).toStdString();
    }
}

TEST_F(求值, 读数) {
    struct 项 { const char16_t* 文; int 位; bool 向前; const char16_t* 数; };
    const 项 表[] = {
        {u"2*-3", 4, true, u"-3"},
        {u"2-3", 3, true, u"3"},
        {u"-5", 2, true, u"-5"},
        {u"1E+5", 4, true, u"1E+5"},
        {u"2+1E-5", 6, true, u"1E-5"},
        {u" 12.5 ", 6, true, u"12.5 "},  // from the start to p, the blank at p included
        {u"3^2", 1, true, u"3"},
        {u"-5*2", 1, false, u"-5"},
        {u"1.5E+30+2", 1, false, u"1.5E+30"},
        {u" 3+4", 1, false, u" 3"},
        {u"3+4", 3, false, u"4"},
        {u"SIN-30 ", 4, false, u"-30"},
        {u"7", 9, false, u"7"},
    };
    for (const auto& c : 表) {
        清除计算状态();
        const QString s = QString::fromUtf16(c.文);
        EXPECT_EQ(c.向前 ? 向前取数字(s, c.位) : 向后取数字(s, c.位), QString::fromUtf16(c.数))
            << s.toStdString() << " @" << c.位;
        EXPECT_EQ(计算状态.错误数, 0) << s.toStdString();
    }
    struct 败项 { const char16_t* 文; int 位; bool 向前; const char16_t* 细节; };
    const 败项 败表[] = {
        {u"1.2.3", 5, true, u" 表达式--小数点数太多--错误！请修改算式后计算。"},
        {u"*", 1, true, u" 表达式--无数字--错误！请修改算式后计算。"},
        {u"1E2E3", 5, true, u" 表达式--存在多个 e E 字母--错误！请修改算式后计算。"},
        {u"1.2.3", 1, false, u" 表达式--小数点数太多--错误！请修改算式后计算。"},
        {u"+-3", 1, false, u" 表达式--正负号太多--错误！请修改算式后计算。"},
        {u"2E", 1, false, u" 表达式--无数字--错误！请修改算式后计算。"},
        {u"1E2E3", 1, false, u" 表达式--存在多个 e E 字母--错误！请修改算式后计算。"},
    };
    for (const auto& c : 败表) {
        清除计算状态();
        const QString s = QString::fromUtf16(c.文);
        const QString r = c.向前 ? 向前取数字(s, c.位) : 向后取数字(s, c.位);
        EXPECT_EQ(计算状态.错误数, 1) << s.toStdString();
        EXPECT_TRUE(计算状态.错误记录.contains(QString::fromUtf16(c.细节))) << s.toStdString() << " "
                                                                     << 计算状态.错误记录.toStdString();
        EXPECT_FALSE(r.isNull());
    }
}

TEST_F(求值, 取字母串) {
    EXPECT_EQ(取字母串(QStringLiteral("2SIN30"), 2), QStringLiteral("SIN"));
    EXPECT_EQ(取字母串(QStringLiteral("asinh(1)"), 0), QStringLiteral("asinh"));
    EXPECT_EQ(取字母串(QStringLiteral("abc"), 5), QString());
    EXPECT_EQ(取字母串(QStringLiteral("ΠX"), 1), QString());
}

}  // namespace
