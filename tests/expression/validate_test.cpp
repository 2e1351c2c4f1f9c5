// Syntax validation: operator repair, number canonicalisation, the
// operator and bracket check with its counted message, the display form,
// the whole 表达式规整 chain, and a robustness run over random text.
#include "expression/normalise.h"
#include "expression/validate.h"
#include "numeric/guarded.h"
#include "numeric/text.h"
#include "tests/support/recording.h"
#include "numeric/state.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ostream>
#include <random>


namespace {

struct 例 {
    const char16_t* 输入;
    const char16_t* 期望;
};

QString Q(const char16_t* s) { return QString::fromUtf16(s); }

const QString 相邻消息 = u" 算式中存在多个运算符相临的错误，请修改算式！！！"_qs;
const QString 配对消息 = u" 算式中--括号无法配对--错误,请修改。"_qs;

}  // namespace

TEST(OperatorRepair, FoldsPairs) {
    const 例 表[] = {
        {u"1+*2", u"1*2"},       // the second binary operator wins
        {u"1*/2", u"1/2"},
        {u"1+-2", u"1-2"},
        {u"1--2", u"1+2"},
        {u"1---2", u"1-2"},
        {u"2^-3", u"2^-3"},      // a sign behind ^ stays
        {u"2^+3", u"2^3"},
        {u"(*3)", u"(3)"},
        {u"(3*)", u"(3)"},
        {u"(-3)", u"(-3)"},      // "(-" is a sign
        {u"(+3)", u"(3)"},
        {u"()", u"(0)"},
        {u"3!!!!", u"3!"},       // no double factorial
        {u"3+!", u"3!"},         // the postfix operator wins
        {u"3.%", u"3%"},
        {u"1....5", u"1.5"},
        {u"1......5", u"1..5"},  // the doubles run twice, not to a fixed point
        {u" 1\u3000+ 2 ", u"1+2"},
        {u"", u"0"},
        {u"算式错误", u"0"},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        EXPECT_EQ(修复相邻运算符(Q(e.输入)), Q(e.期望));
    }
}

TEST(NumberCanon, RewritesEachNumber) {
    const 例 表[] = {
        {u"007", u"7"},
        {u"1.50", u"1.5"},
        {u"2e3", u"2000"},
        {u"2E-3+1", u"0.002+1"},   // the exponent's sign belongs to the number
        {u"1-2", u"1-2"},          // a binary minus ends it
        {u"1E29", u"1E+29"},       // beyond the decimal: the double's text
        {u"X+007*SIN030", u"X+7*SIN30"},
        {u".5", u"0.5"},
        {u"", u"0"},
        {u"1.2345678901234567890123456789", u"1.2345678901234567890123456789"},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        清除计算状态();
        EXPECT_EQ(算式数字规范(Q(e.输入)), Q(e.期望));
        EXPECT_EQ(计算状态.错误数, 0);
    }
    for (const char16_t* s : {u"1.2.3", u"2E", u"1+2E+"}) {  // malformed: reported
        SCOPED_TRACE(Q(s).toStdString());
        清除计算状态();
        EXPECT_TRUE(算式数字规范(Q(s)).endsWith(u'1'));  // the failure marker stands for the rest
        EXPECT_GT(计算状态.错误数, 0);
    }
}

// Plain numbers are written without a round through the reader; what they
// become must still be what the reader makes of them, switch on or off.
TEST(NumberCanon, PlainNumbersAsTheReaderReadsThem) {
    const char16_t* 表[] = {
        u"0", u"000", u"0.000", u".5", u"5.", u"007.0700", u"100", u"0.0001",
        u"12345678901234567890", u"1234567890123456789.5", u".0000000000000000001",
        u"123456789012345678901", u"1234567890.1234567890",
    };
    for (const bool 开 : {true, false}) {
        for (const char16_t* s : 表) {
            SCOPED_TRACE(Q(s).toStdString() + (开 ? " on" : " off"));
            计算状态.高精度开关 = 开;
            清除计算状态();
            const QString 规范 = 算式数字规范(Q(s));
            const int 损失 = 计算状态.精度损失数;
            清除计算状态();
            EXPECT_EQ(规范, txt::trim(Hvt数转数(数值(Q(s))).文本()));
            EXPECT_EQ(损失, 计算状态.精度损失数);
        }
    }
    计算状态.高精度开关 = true;
}

TEST(AdjacencyCheck, CountsFaultsAndBrackets) {
    struct 查例 {
        const char16_t* 输入;
        int 相邻错;            // faults of the operator table
        const char16_t* 括号;  // bracket message, or nullptr
    };
    const 查例 表[] = {
        {u"1+2", 0, nullptr},
        {u"-5+2^-3", 0, nullptr},
        {u"5%+5‰*3!", 0, nullptr},
        {u"(1)(2)", 0, nullptr},
        {u"2.X", 1, nullptr},     // a point ahead of a letter
        {u"3!!", 1, nullptr},
        {u"1*/2", 2, nullptr},    // "*" sees "/" behind, "/" sees "*" ahead
        {u"(*3)", 2, nullptr},
        {u"-%", 2, nullptr},
        {u"1+)", 2, u" 算式中--括号无法配对--错误,请修改。"},
        {u")1(", 0, u" 算式中--括号顺序--错误,请修改。"},
        {u"(1))+((2)", 0, u" 算式中--括号顺序--错误,请修改。"},
        {u"(1+2", 0, u" 算式中--括号无法配对--错误,请修改。"},
        {u"(1+(2)", 0, u" 算式中--括号无法配对--错误,请修改。"},
        {u"((1)+(2))", 0, nullptr},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        交互记录作用域 盒;
        清除计算状态();
        EXPECT_EQ(检查运算符相邻(Q(e.输入)), Q(e.输入));
        EXPECT_EQ(计算状态.错误数, e.相邻错 + (e.括号 ? 1 : 0));
        QStringList 应示;
        if (e.相邻错 > 0) 应示 << 相邻消息;  // one message, however many faults
        if (e.括号) 应示 << Q(e.括号);
        EXPECT_EQ(盒.记录器.文本列表(), 应示);
        EXPECT_EQ(计算状态.错误记录, 应示.isEmpty() ? QString() : 应示.join(u"\r\n"_qs) + u"\r\n"_qs);
    }
}

TEST(AdjacencyCheck, FirstErrorOnlyWhenCountIsOne) {
    交互记录作用域 盒;
    清除计算状态();
    检查运算符相邻(u"2.X"_qs);   // one fault: the count becomes 1
    EXPECT_EQ(计算状态.首个错误, 相邻消息);
    清除计算状态();
    检查运算符相邻(u"1*/2"_qs);  // two faults: the count jumps past 1
    EXPECT_EQ(计算状态.错误数, 2);
    EXPECT_TRUE(计算状态.首个错误.isEmpty());
    EXPECT_EQ(计算状态.错误提示, 相邻消息);
    清除计算状态();
    检查运算符相邻(u"(*3"_qs);   // two faults, and the bracket message third
    EXPECT_EQ(计算状态.错误数, 3);
    EXPECT_TRUE(计算状态.首个错误.isEmpty());
    EXPECT_EQ(计算状态.错误提示, 配对消息);
}

TEST(DisplayForm, SpacingAndNames) {
    const 例 表[] = {
        {u"-5", u"- 5"},
        {u"5", u"5"},
        {u"2*SIN30-(-3)", u"2 * Sin30 - (-3)"},
        {u"2^-3", u"2 ^ -3"},
        {u"1--2", u"1 - -2"},
        {u"7\\3", u"7 \\ 3"},
        {u"1E+29*2", u"1E+29 * 2"},
        {u"ASINH(1)+SINH(1)", u"Asinh(1) + Sinh(1)"},   // longest names first
        {u"LG2+ln3", u"Lg2 + Ln3"},
        {u"SING(1)", u"SinG(1)"},        // only SIGN has a display name; SIN matches inside
        {u"SIN+1", u"Sin(0) + 1"},       // a function with nothing behind it gets 0
        {u"X*SIN", u"X * Sin"},
        {u"Π*Ε", u"π * ε"},
        {u"(+3)", u"(3)"},
        {u"(1)(2)", u"(1)*(2)"},
        {u"A=B", u"A = B"},
        {u"IF(X)", u"If (X)"},
        {u"\u3000", u"0"},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        EXPECT_EQ(算式显示形式(Q(e.输入)), Q(e.期望));
    }
}

TEST(ExpressionTidy, WholeChain) {
    struct 链例 {
        const char16_t* 输入;
        const char16_t* 期望;
        bool 有错;
    };
    const 链例 表[] = {
        {u"2x", u"2 * X", false},
        {u"三点五乘二", u"3.5 * 2", false},
        {u"三乘以四", u"3 * 4", false},
        {u"七求余三", u"7 \\ 3", false},
        {u"２ｓｉｎ３０", u"2 * Sin30", false},
        {u"1，000+007", u"1000 + 7", false},
        {u"1E29", u"1E+29", false},
        {u"（1+2）(3+4)π", u"(1 + 2) * (3 + 4) * π", false},
        {u"", u"0", false},
        {u")1(", u"1", false},           // the junk cut leaves only the number
        {u"O", u"O请修改", true},
        {u"(1+2", u"(1 + 2请修改", true},
        {u"1.2.3", u"1请修改", true},
        {u"SIGN(1)", u"Sign(1)请修改", true},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        交互记录作用域 盒;
        EXPECT_EQ(表达式规整(算式字符规整(Q(e.输入))), Q(e.期望));
        EXPECT_EQ(计算状态.错误数 > 0, e.有错);
    }
    // Every tidy run starts from a reset.
    报告错误(u"earlier"_qs);
    计算状态.精度损失数 = 3;
    EXPECT_EQ(表达式规整(u"1+2"_qs), u"1 + 2"_qs);
    EXPECT_EQ(计算状态.错误数, 0);
    EXPECT_EQ(计算状态.精度损失数, 0);
}

// Random text of up to 2 000 characters through both stages: no crash, no
// hang, any failure leaves a message in the collector, and a tidy text
// without errors reads again without errors.
TEST(ExpressionTidy, RandomTextNeverBreaks) {
    const QStringList 片段 = {
        u"0"_qs, u"1"_qs, u"5"_qs, u"9"_qs, u"."_qs, u"E"_qs, u"e"_qs, u"+"_qs, u"-"_qs,
        u"*"_qs, u"/"_qs, u"\\"_qs, u"^"_qs, u"!"_qs, u"%"_qs, u"‰"_qs, u"("_qs, u")"_qs,
        u"["_qs, u"}"_qs, u"（"_qs, u"）"_qs, u"《"_qs, u"X"_qs, u"O"_qs, u"a"_qs,
        u"SIN"_qs, u"cos"_qs, u"LG"_qs, u"SIGN"_qs, u"Π"_qs, u"π"_qs, u"ε"_qs, u"pai"_qs,
        u"１"_qs, u"＋"_qs, u"－"_qs, u"×"_qs, u"÷"_qs, u"："_qs, u"．"_qs, u"Ｓ"_qs,
        u"一"_qs, u"零"_qs, u"点"_qs, u"负"_qs, u"乘以"_qs, u"除以"_qs, u"求余"_qs,
        u"等于"_qs, u"、"_qs, u"，"_qs, u" "_qs, u"\u3000"_qs, u">="_qs, u"算式错误"_qs,
        u"\t"_qs,
    };
    std::mt19937 随机(20261123);
    std::uniform_int_distribution<int> 取片(0, static_cast<int>(片段.size()) - 1);
    std::uniform_int_distribution<int> 取长(0, 2000), 取短(0, 12);
    const QString 可开头 = u"0123456789-(πε"_qs, 可结尾 = u"0123456789)!%‰πε"_qs;
    int 无错次数 = 0;
    const auto 开始 = std::chrono::steady_clock::now();
    交互记录作用域 盒;
    for (int 次 = 0; 次 < 600; ++次) {
        QString 文本;
        const int 长 = 次 < 10 ? 2000 : (次 % 2 ? 取短(随机) : 取长(随机));
        while (文本.size() < 长) 文本 += 片段[取片(随机)];
        文本.truncate(长);
        盒.记录器.记录.clear();
        const QString r = 表达式规整(算式字符规整(文本));
        ASSERT_FALSE(r.isEmpty());
        ASSERT_EQ(r.endsWith(u"请修改"_qs), 计算状态.错误数 > 0) << 文本.toStdString();
        ASSERT_EQ(计算状态.错误记录.isEmpty(), 计算状态.错误数 == 0) << 文本.toStdString();
        for (const QString& 示 : 盒.记录器.文本列表()) ASSERT_TRUE(计算状态.错误记录.contains(示));
        if (计算状态.错误数 == 0) {
            ++无错次数;
            const QString 再 = 表达式规整(算式字符规整(r));
            EXPECT_EQ(计算状态.错误数, 0) << r.toStdString();
            // The junk cut runs ahead of the operator repair, so a lone "/"
            // or "%" may be left at an end; otherwise the tidy text is stable.
            if ((txt::isAsciiLetter(r.front()) || 可开头.contains(r.front())) &&
                (txt::isAsciiLetter(r.back()) || 可结尾.contains(r.back()))) {
                EXPECT_EQ(再, r) << 文本.toStdString();
            }
        }
        规整数字文本(文本);
        规整数字列表(文本);
        规整文本字符(文本);
        规整数字(数值(文本));
    }
    EXPECT_GT(无错次数, 10);  // the stability check did run
    EXPECT_LT(std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - 开始).count(), 60);
}
