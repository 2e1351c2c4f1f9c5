// Input normalisation: the ordered character table, the structure pass
// (junk cut, names, implied multiplication) and the number cleaners.
#include "expression/normalise.h"
#include "tests/support/recording.h"
#include "numeric/state.h"

#include <gtest/gtest.h>

#include <ostream>


namespace {

struct 例 {
    const char16_t* 输入;
    const char16_t* 期望;
};

QString Q(const char16_t* s) { return QString::fromUtf16(s); }

const QString 无法识读头 = u"输入的公式表达式中："_qs;
const QString 无法识读尾 = u"\r\n\r\n存在无法识读的函数或变量，请修改！"_qs;

}  // namespace

TEST(CharacterTable, FormsWordsAndOrderTraps) {
    const 例 表[] = {
        {u"１＋２", u"1+2"},
        {u"三点五乘二", u"3.5*2"},
        {u"二十", u"2十"},                 // digit by digit, not as a number
        {u"壹贰叁肆伍陆柒捌玖另", u"1234567890"},
        {u"ｓｉｎ３０", u"sin30"},
        {u"（１＋２）×３÷４", u"(1+2)*3/4"},
        {u"三乘以四", u"3*以4"},           // "乘" goes before "乘以" is looked for
        {u"八除以二", u"8/以2"},
        {u"七求余三", u"7求\\3"},          // "余" before "求余"
        {u"1、5", u"1.5"},                 // the enumeration comma is a point
        {u"±1负2_3", u"-1-2-3"},
        {u"３：４｜5|6", u"3/4/5/6"},      // a ratio is a quotient
        {u"１＞＝２", u"1≥2"},             // "＝" and "＞" go ASCII first, then ">="
        {u"1=>2<=3=<4", u"1≥2≤3≤4"},
        {u"一大于二等于三", u"1>2=3"},
        {u"pai+Pai+PAI+派+π", u"Π+Π+Π+Π+Π"},
        {u"ＰＡＩ", u"PAI"},               // full-width letters turn Latin after the PAI row
        {u"ε", u"Ε"},
        {u"《1》[2]{3}〔4〕", u"(1)(2)(3)(4)"},
        {u"1，000", u"1,000"},            // the comma stays; the structure pass drops it
        {u"", u""},
        {u" １ \u3000２ ", u"12"},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        EXPECT_EQ(算式字符规整(Q(e.输入)), Q(e.期望));
    }
}

TEST(StructurePass, StarsCutsAndPoints) {
    const 例 表[] = {
        {u"2X", u"2*X"},
        {u"X2", u"X*2"},
        {u"2X3", u"2*X*3"},
        {u"2(3)", u"2*(3)"},
        {u"(1+2)(3+4)", u"(1+2)*(3+4)"},
        {u"3!2", u"3!*2"},
        {u"5%(3)", u"5%*(3)"},
        {u"(2).5", u"(2)*.5"},
        {u"2π", u"2*Π"},
        {u"Π2", u"Π*2"},
        {u"ΠX", u"Π*X"},
        {u"XΠ", u"X*Π"},
        {u"X(2)", u"X*(2)"},
        {u"(1)X", u"(1)*X"},
        {u"sin30", u"SIN30"},              // a function takes a number: no star
        {u"2sin30", u"2*SIN30"},
        {u"sin(x)", u"SIN(X)"},
        {u"2E3", u"2E3"},                  // E behind a digit is the exponent
        {u"2E", u"2E"},
        {u"E2", u"E2"},
        {u"(2)E", u"(2)*E"},               // E behind a bracket is the variable
        {u"E(2)", u"E*(2)"},
        {u"", u"0"},
        {u"中文", u"0"},
        {u"((", u"0"},                     // nothing can end an expression
        {u"5.", u"5"},
        {u".5", u".5"},
        {u"+5", u"5"},
        {u"*5", u"5"},
        {u"5+", u"5"},
        {u"1,000", u"1000"},
        {u"3*以4", u"3*4"},
        {u"1≥2", u"12"},
        {u"2.X", u"2*X"},                  // a point not ahead of a digit goes
        {u"X.5", u"X*5"},                  // nor one behind a letter
        {u"1.2.3", u"1.2.3"},              // refused later, by the number check
        {u"1+-2", u"1-2"},                 // operator pairs are repaired here already
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        交互记录作用域 盒;
        清除计算状态();
        EXPECT_EQ(算式结构规整(Q(e.输入)), Q(e.期望));
        EXPECT_EQ(计算状态.错误数, 0);
    }
}

TEST(StructurePass, NameCheck) {
    struct 名例 {
        const char16_t* 输入;
        const char16_t* 未知名;  // nullptr: no report
    };
    const 名例 表[] = {
        {u"O", u"O"},
        {u"2O", u"O"},              // unknown names get no star, and are kept
        {u"SIGN(1)", u"SIGN"},      // the table spells it SING
        {u"SING(1)", nullptr},
        {u"OS", nullptr},           // plain text search: found inside "COS;"
        {u"AB", u"AB"},             // inside "ABS;", but not followed by ";"
        {u"SINX", u"SINX"},
        {u"ASINH(1)+LG2", nullptr},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        交互记录作用域 盒;
        清除计算状态();
        EXPECT_EQ(算式结构规整(Q(e.输入)), Q(e.输入));
        if (e.未知名) {
            const QString 消息 = 无法识读头 + Q(e.未知名) + 无法识读尾;
            EXPECT_EQ(计算状态.错误数, 1);
            EXPECT_EQ(计算状态.首个错误, 消息);
            EXPECT_EQ(计算状态.错误记录, 消息 + u"\r\n"_qs);
            EXPECT_EQ(盒.记录器.文本列表(), QStringList{消息});
        } else {
            EXPECT_EQ(计算状态.错误数, 0);
            EXPECT_TRUE(盒.记录器.记录.isEmpty());
        }
    }
    交互记录作用域 盒;
    清除计算状态();
    EXPECT_EQ(算式结构规整(u"XY+O+SIN1+QQ"_qs), u"XY+O+SIN1+QQ"_qs);
    EXPECT_EQ(计算状态.错误数, 3);
    EXPECT_EQ(计算状态.首个错误, 无法识读头 + u"XY"_qs + 无法识读尾);
    EXPECT_EQ(计算状态.错误提示, 无法识读头 + u"QQ"_qs + 无法识读尾);
}

TEST(NumberBox, CleansAndReads) {
    const 例 表[] = {
        {u"一二三．五", u"123.5"},
        {u"1.2.3", u"1.2"},
        {u"", u"0"},
        {u"--5", u"5"},
        {u"---5", u"-5"},       // "--" → "+", then a step back folds "+-"
        {u"-+5", u"-5"},
        {u"1..5", u"1.5"},
        {u"1EE2", u"100"},      // a sign, point or E ahead of an E goes
        {u"1.E2", u"100"},
        {u"1E2.5", u"100"},     // a point behind E ends the number
        {u"1E2E3", u"100"},     // so does a second E
        {u"负三点五", u"-3.5"},
        {u"━5", u"-5"},
        {u"  12abc  ", u"12"},
        {u"abc", u"0"},         // nothing left reads as blank
        {u"1.2345678901234567890123456789", u"1.2345678901234567890123456789"},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        清除计算状态();
        const 数值 r = 规整数字(数值(Q(e.输入)));
        EXPECT_EQ(r.文本(), Q(e.期望));
        EXPECT_TRUE(r.是十进制());
        EXPECT_EQ(计算状态.错误数, 0);
    }
    for (const char16_t* s : {u"E", u"-", u".", u"5-3"}) {  // no number left
        SCOPED_TRACE(Q(s).toStdString());
        清除计算状态();
        EXPECT_EQ(规整数字(数值(Q(s))).文本(), u"1"_qs);
        EXPECT_EQ(计算状态.错误数, 1);
    }
}

TEST(NumberText, LenientAndHighPrecision) {
    struct 文例 {
        const char16_t* 输入;
        const char16_t* 宽松;  // 规整数字文本
        const char16_t* 高精;  // 规整高精度数字文本 ("1" = fails)
    };
    const 文例 表[] = {
        {u"", u"0", u"0"},
        {u"1，234.5", u"1234.5", u"1234.5"},
        {u"－１２．５０", u"-12.5", u"-12.5"},
        {u"1ｅ3", u"1000", u"1000"},
        {u".5", u"0.5", u"0.5"},
        {u"0.1234567890123456789", u"0.123456789012346", u"0.1234567890123456789"},
        {u"1.5abc", u"1.5", u"1"},   // a prefix for the one, the whole text for the other
        {u"1E+", u"1", u"1"},
        {u"abc", u"0", u"1"},
        {u"-0", u"0", u"0"},
        {u"1E999", u"0", u"1"},      // overflow is a fault, ignored by the lenient read
        {u"1E20", u"1E+20", u"100000000000000000000"},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        清除计算状态();
        EXPECT_EQ(规整数字文本(Q(e.输入)), Q(e.宽松));
        EXPECT_EQ(计算状态.错误数, 0);
        EXPECT_EQ(规整高精度数字文本(Q(e.输入)), Q(e.高精));
        EXPECT_EQ(计算状态.错误数 > 0, Q(e.高精) == u"1"_qs);
    }
}

TEST(NumberList, JoinsWithCommaBlank) {
    const 例 表[] = {
        {u"", u"0, "},
        {u"1，2,3", u"1, 2, 3, "},
        {u"1,2,", u"1, 2, "},
        {u"1,,2", u"1, 0, 2, "},
        {u",", u"0, "},
        {u"1.5x , 2", u"1.5, 2, "},
        {u"－1．5﹐1Ｅ3", u"-1.5, 1000, "},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        EXPECT_EQ(规整数字列表(Q(e.输入)), Q(e.期望));
    }
}

TEST(FreeText, PunctuationMadeHalfWidth) {
    const 例 表[] = {
        {u"", u""},
        {u" a\u3000b ", u" a b "},          // blanks are kept
        {u"（１，２）［〕｛﹜", u"(1,2)[]{}"},
        {u"“ab”＂￥", u"\"ab\"\"\""},
        {u"一 另 ３：４", u"1 0 3:4"},
        {u"乘以×", u"乘以*"},               // words are not operators here
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        EXPECT_EQ(规整文本字符(Q(e.输入)), Q(e.期望));
    }
}
