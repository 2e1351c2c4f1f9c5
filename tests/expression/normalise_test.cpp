// Input normalisation: the ordered character table, the structure pass
// (junk cut, names, implied multiplication) and the number cleaners.
#include "expression/normalise.h"
#include "shell/interaction.h"
#include "shell/state.h"

#include <gtest/gtest.h>

#include <ostream>

// Readable failure output for texts.
static void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }

namespace {

struct 例 {
    const char16_t* 输入;
    const char16_t* 期望;
};

QString Q(const char16_t* s) { return QString::fromUtf16(s); }

const QString 无法识读头 = u"输入的公式表达式中："_qs;
const QString 无法识读尾 = u"\r\n\r\n存在无法识读的函数或变量，请修改！"_qs;

}  // namespace

// ---------------------------------------------------------------------------
// 算式字符规整

TEST(CharacterTable, FullWidthFormsAndNumerals) {
    const 例 表[] = {
        {u"１＋２", u"1+2"},
        {u"三点五乘二", u"3.5*2"},
        {u"二十", u"2十"},                       // digit by digit, not as a number
        {u"壹贰叁肆伍陆柒捌玖零", u"1234567890"},
        {u"一二三四五六七八九另", u"1234567890"},
        {u"０１２３４５６７８９", u"0123456789"},
        {u"ｓｉｎ３０", u"sin30"},
        {u"ＡＢＣｘｙｚ", u"ABCxyz"},
        {u"（１＋２）×３", u"(1+2)*3"},
        {u"３＊４﹡５χ６", u"3*4*5*6"},
        {u"８÷２／４", u"8/2/4"},
        {u"１０％＋５！", u"10%+5!"},
        {u"２＾３", u"2^3"},
        {u"１﹒５。５．５·５", u"1.5.5.5.5"},
        {u"７＼３﹨２", u"7\\3\\2"},
        {u"１＜２〈３﹤４", u"1<2<3<4"},
        {u"１＞２〉３﹥４", u"1>2>3>4"},
        {u"ａ；ｂ﹔ｃ", u"a;b;c"},
        {u"正三加四", u"+3+4"},
        {u"十减八", u"十-8"},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        EXPECT_EQ(算式字符规整(Q(e.输入)), Q(e.期望));
    }
}

TEST(CharacterTable, OrderTraps) {
    const 例 表[] = {
        {u"三乘以四", u"3*以4"},   // "乘" is replaced before "乘以" is looked for
        {u"八除以二", u"8/以2"},
        {u"七求余三", u"7求\\3"},  // "余" before "求余"
        {u"1、5", u"1.5"},          // the enumeration comma is a point
        {u"±1", u"-1"},
        {u"负五", u"-5"},
        {u"a_b", u"a-b"},
        {u"３：４", u"3/4"},        // a ratio is a quotient
        {u"3｜4", u"3/4"},
        {u"3|4", u"3/4"},
        {u"3﹕4︰5", u"3/4/5"},
        {u"１＞＝２", u"1≥2"},       // "＝" and "＞" made ASCII first, then ">="
        {u"１＝＞２", u"1≥2"},
        {u"1>=2", u"1≥2"},
        {u"1=<2", u"1≤2"},
        {u"1<=2", u"1≤2"},
        {u"１＜＝２", u"1≤2"},
        {u"1≧2≦3", u"1≥2≤3"},
        {u"一大于二", u"1>2"},
        {u"一小于二", u"1<2"},
        {u"一等于一", u"1=1"},
        {u"一≈一", u"1=1"},
        {u"pai+Pai+PAI+派+π+∏", u"Π+Π+Π+Π+Π+Π"},
        {u"ＰＡＩ", u"PAI"},         // full-width letters become Latin after the PAI row
        {u"pAi", u"pAi"},
        {u"ε", u"Ε"},
        {u"《1》", u"(1)"},
        {u"[1]{2}", u"(1)(2)"},
        {u"［1］｛2｝﹙3﹚﹛4﹜﹝5﹞（6）〔7〕", u"(1)(2)(3)(4)(5)(6)(7)"},
        {u"1‐2﹣3－4―5＿6", u"1-2-3-4-5-6"},
        {u"1╋2﹢3＋4", u"1+2+3+4"},
        {u"1，000", u"1,000"},      // the comma stays; the structure pass drops it
        {u"5﹐5", u"5,5"},
        {u"！﹗％﹪", u"!!%%"},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        EXPECT_EQ(算式字符规整(Q(e.输入)), Q(e.期望));
    }
}

TEST(CharacterTable, BlanksAndEmpty) {
    const 例 表[] = {
        {u"", u""},
        {u"   ", u""},
        {u"\u3000\u3000", u""},
        {u" １ \u3000２ ", u"12"},
        {u"1 + 2", u"1+2"},
        {u"\t1", u"\t1"},  // only blanks go here; the structure pass filters the rest
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        EXPECT_EQ(算式字符规整(Q(e.输入)), Q(e.期望));
    }
}

// ---------------------------------------------------------------------------
// 算式结构规整

TEST(StructurePass, ImpliedMultiplication) {
    const 例 表[] = {
        {u"2X", u"2*X"},
        {u"X2", u"X*2"},
        {u"2(3)", u"2*(3)"},
        {u"(1+2)(3+4)", u"(1+2)*(3+4)"},
        {u"3!2", u"3!*2"},
        {u"2π", u"2*Π"},
        {u"2Π", u"2*Π"},
        {u"Π2", u"Π*2"},
        {u"ΠΠ", u"Π*Π"},
        {u"ΠX", u"Π*X"},
        {u"XΠ", u"X*Π"},
        {u"2ε", u"2*Ε"},
        {u"sin30", u"SIN30"},
        {u"2sin30", u"2*SIN30"},
        {u"3SIN30", u"3*SIN30"},
        {u"X(2)", u"X*(2)"},
        {u"(1)X", u"(1)*X"},
        {u"XY+1", u"XY+1"},          // unknown, copied (reported: see below)
        {u"2X3", u"2*X*3"},
        {u"SIN(30)", u"SIN(30)"},
        {u"sin(x)", u"SIN(X)"},
        {u"abs-3", u"ABS-3"},
        {u"5%3", u"5%*3"},
        {u"5‰3", u"5‰*3"},
        {u"2!(3)", u"2!*(3)"},
        {u"2%(3)", u"2%*(3)"},
        {u"(2)3", u"(2)*3"},
        {u"(2).5", u"(2)*.5"},
        {u"X-Y", u"X-Y"},
        {u"X^2", u"X^2"},
        {u"X!", u"X!"},
        {u"-X", u"-X"},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        交互记录作用域 盒;
        清除计算状态();
        EXPECT_EQ(算式结构规整(Q(e.输入)), Q(e.期望));
    }
}

TEST(StructurePass, ExponentLetter) {
    const 例 表[] = {
        {u"2E3", u"2E3"},      // E behind a digit is the exponent
        {u"2e3", u"2E3"},
        {u"2E", u"2E"},
        {u"E2", u"E2"},
        {u"2E-3", u"2E-3"},
        {u"(2)E", u"(2)*E"},   // E behind a bracket is the variable
        {u"E(2)", u"E*(2)"},
        {u"2*E", u"2*E"},
        {u"EX", u"EX"},        // a run of letters is one name
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        交互记录作用域 盒;
        EXPECT_EQ(算式结构规整(Q(e.输入)), Q(e.期望));
    }
}

TEST(StructurePass, JunkCutAndPoints) {
    const 例 表[] = {
        {u"", u"0"},
        {u"   ", u"0"},
        {u"中文", u"0"},
        {u"+", u"0"},
        {u"((", u"0"},         // nothing can end an expression
        {u"..", u"0"},
        {u"5.", u"5"},
        {u".5", u".5"},
        {u"+5", u"5"},
        {u"*5", u"5"},
        {u"5*", u"5"},
        {u"5+", u"5"},
        {u"^/5!", u"5!"},
        {u"1,000", u"1000"},
        {u"3*以4", u"3*4"},
        {u"7求\\3", u"7\\3"},
        {u"1≥2", u"12"},
        {u"1 + 2", u"1+2"},
        {u"  -5  ", u"-5"},
        {u"(5", u"(5"},
        {u"1.2.3", u"1.2.3"},   // points between digits stay; the number check refuses it later
        {u"2.X", u"2*X"},       // a point not ahead of a digit goes
        {u"X.5", u"X*5"},       // a point behind a letter goes
        {u"(.5)", u"(.5)"},
        {u"-.5", u"-.5"},
        {u"1+-2", u"1-2"},      // operator pairs are repaired here already
        {u"5+)", u"5)"},
        {u"1..5", u"1.5"},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        交互记录作用域 盒;
        清除计算状态();
        EXPECT_EQ(算式结构规整(Q(e.输入)), Q(e.期望));
        EXPECT_EQ(公共.错误数, 0);
    }
}

TEST(StructurePass, NameCheck) {
    struct 名例 {
        const char16_t* 输入;
        const char16_t* 期望;
        const char16_t* 未知名;  // nullptr: no report
    };
    const 名例 表[] = {
        {u"O", u"O", u"O"},
        {u"2O", u"2O", u"O"},        // unknown names get no star, and are kept
        {u"SIGN(1)", u"SIGN(1)", u"SIGN"},
        {u"SING(1)", u"SING(1)", nullptr},
        {u"OS", u"OS", nullptr},     // plain text search: found inside "COS;"
        {u"IN", u"IN", nullptr},     // inside "SIN;"
        {u"AB", u"AB", u"AB"},       // "AB" is in "ABS;", but not followed by ";"
        {u"XY", u"XY", u"XY"},
        {u"SINX", u"SINX", u"SINX"},
        {u"ASINH(1)+ACOTH(2)", u"ASINH(1)+ACOTH(2)", nullptr},
        {u"RAND", u"RAND", nullptr},
        {u"LG2+LN3", u"LG2+LN3", nullptr},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        交互记录作用域 盒;
        清除计算状态();
        EXPECT_EQ(算式结构规整(Q(e.输入)), Q(e.期望));
        if (e.未知名) {
            const QString 消息 = 无法识读头 + Q(e.未知名) + 无法识读尾;
            EXPECT_EQ(公共.错误数, 1);
            EXPECT_EQ(公共.首个错误, 消息);
            EXPECT_EQ(公共.错误记录, 消息 + u"\r\n"_qs);
            ASSERT_EQ(盒.记录器.记录.size(), 1);
            EXPECT_EQ(盒.记录器.记录[0].文本, 消息);
            EXPECT_FALSE(盒.记录器.记录[0].是询问);
        } else {
            EXPECT_EQ(公共.错误数, 0);
            EXPECT_TRUE(盒.记录器.记录.isEmpty());
        }
    }
}

TEST(StructurePass, EveryUnknownNameCounts) {
    交互记录作用域 盒;
    清除计算状态();
    EXPECT_EQ(算式结构规整(u"XY+O+SIN1+QQ"_qs), u"XY+O+SIN1+QQ"_qs);
    EXPECT_EQ(公共.错误数, 3);
    EXPECT_EQ(公共.首个错误, 无法识读头 + u"XY"_qs + 无法识读尾);
    EXPECT_EQ(公共.错误提示, 无法识读头 + u"QQ"_qs + 无法识读尾);
    EXPECT_EQ(盒.记录器.记录.size(), 3);
}

// ---------------------------------------------------------------------------
// 规整数字

TEST(NumberBox, CleansAndReads) {
    const 例 表[] = {
        {u"一二三．五", u"123.5"},
        {u"1.2.3", u"1.2"},
        {u"", u"0"},
        {u"   ", u"0"},
        {u"--5", u"5"},
        {u"+-5", u"-5"},
        {u"-+5", u"-5"},
        {u"---5", u"-5"},         // "--" → "+", then "+-" → "-" after stepping back
        {u"1..5", u"1.5"},
        {u"1EE2", u"100"},        // an E ahead of an E goes
        {u"1.E2", u"100"},
        {u"1-E2", u"100"},
        {u"1E2.5", u"100"},       // a point behind E ends the number
        {u"1E2E3", u"100"},       // a second E ends it
        {u"1e3", u"1000"},
        {u"负三点五", u"-3.5"},
        {u"正五", u"5"},
        {u"减五", u"-5"},
        {u"━5", u"-5"},
        {u"—5", u"-5"},
        {u"┼5", u"5"},
        {u"1,234", u"1234"},      // anything else is dropped
        {u"  12abc  ", u"12"},
        {u"１２、５", u"12.5"},
        {u"二十", u"2"},
        {u"另点五", u"0.5"},
        {u"abc", u"0"},           // nothing left reads as a blank
        {u"1.2345678901234567890123456789", u"1.2345678901234567890123456789"},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        清除计算状态();
        const 数值 r = 规整数字(数值(Q(e.输入)));
        EXPECT_EQ(r.文本(), Q(e.期望));
        EXPECT_TRUE(r.是十进制());
        EXPECT_EQ(公共.错误数, 0);
    }
}

TEST(NumberBox, NoNumberLeftFails) {
    const char16_t* 表[] = {u"E", u"+", u"-", u".", u"E5", u"5-3", u"5+"};
    for (const auto* s : 表) {
        SCOPED_TRACE(Q(s).toStdString());
        清除计算状态();
        const 数值 r = 规整数字(数值(Q(s)));
        EXPECT_EQ(r.文本(), u"1"_qs);
        EXPECT_EQ(公共.错误数, 1);
        EXPECT_TRUE(公共.首个错误.contains(u"Hvt数转数"_qs));
    }
}

TEST(NumberBox, TakesDecimalValues) {
    清除计算状态();
    const 数值 r = 规整数字(数值(Decimal96::fromInt64(-42)));
    EXPECT_EQ(r.文本(), u"-42"_qs);
    EXPECT_EQ(公共.错误数, 0);
}

// ---------------------------------------------------------------------------
// 规整数字文本 and 规整高精度数字文本

TEST(NumberText, LenientDoubleReading) {
    const 例 表[] = {
        {u"", u"0"},
        {u"\u3000 ", u"0"},
        {u"1，234.5", u"1234.5"},
        {u"1,234,567", u"1234567"},
        {u"1﹐000", u"1000"},
        {u"１２３", u"123"},
        {u"－５", u"-5"},
        {u"±5", u"-5"},
        {u"＋５", u"5"},
        {u"1．5", u"1.5"},
        {u"1。5", u"1.5"},
        {u"1.5abc", u"1.5"},
        {u"abc", u"0"},
        {u"-", u"0"},
        {u".", u"0"},
        {u".5", u"0.5"},
        {u"-.5", u"-0.5"},
        {u"1E3", u"1000"},
        {u"1ｅ3", u"1000"},
        {u"1Ｅ-3", u"0.001"},
        {u"1e", u"1"},            // an exponent without digits is not part of the number
        {u"1E+", u"1"},
        {u"1.2.3", u"1.2"},
        {u"1E999", u"0"},         // overflow is a fault, and faults are ignored
        {u"-0", u"0"},
        {u"50％", u"50"},
        {u"0.1234567890123456789", u"0.123456789012346"},  // a double's 15 digits
        {u"1E20", u"1E+20"},
        {u"一二三", u"0"},         // Chinese numerals are not mapped here
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        清除计算状态();
        EXPECT_EQ(规整数字文本(Q(e.输入)), Q(e.期望));
        EXPECT_EQ(公共.错误数, 0);
    }
}

TEST(NumberText, HighPrecisionKeepsDigits) {
    struct 高例 {
        const char16_t* 输入;
        const char16_t* 期望;
        int 错误数;
    };
    const 高例 表[] = {
        {u"", u"0", 0},
        {u"0.1234567890123456789", u"0.1234567890123456789", 0},
        {u"1，000", u"1000", 0},
        {u"１２３．５０", u"123.5", 0},
        {u"－0.10", u"-0.1", 0},
        {u"1E+29", u"1E+29", 0},
        {u"12345678901234567890123456789", u"12345678901234567890123456789", 0},
        {u"abc", u"1", 1},
        {u"1.5abc", u"1", 1},      // whole text, not a prefix
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        清除计算状态();
        EXPECT_EQ(规整高精度数字文本(Q(e.输入)), Q(e.期望));
        EXPECT_EQ(公共.错误数, e.错误数);
    }
}

// ---------------------------------------------------------------------------
// 规整数字列表

TEST(NumberList, JoinsWithCommaBlank) {
    const 例 表[] = {
        {u"", u"0, "},
        {u"  ", u"0, "},
        {u"1，2,3", u"1, 2, 3, "},
        {u"1,2,", u"1, 2, "},
        {u"1,,2", u"1, 0, 2, "},
        {u",", u"0, "},
        {u"1.5x,2", u"1.5, 2, "},
        {u"１﹐２", u"1, 2, "},
        {u"1 , 2", u"1, 2, "},
        {u"－1．5，1Ｅ3", u"-1.5, 1000, "},
        {u"0.1234567890123456789", u"0.123456789012346, "},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        清除计算状态();
        EXPECT_EQ(规整数字列表(Q(e.输入)), Q(e.期望));
        EXPECT_EQ(公共.错误数, 0);
    }
}

// ---------------------------------------------------------------------------
// 规整文本字符

TEST(FreeText, PunctuationMadeHalfWidth) {
    const 例 表[] = {
        {u"", u""},
        {u"a\u3000b", u"a b"},
        {u"  x  ", u"  x  "},                 // blanks are kept
        {u"（１，２）", u"(1,2)"},
        {u"［1〕｛2﹜", u"[1]{2}"},
        {u"“ab”＂", u"\"ab\"\""},
        {u"￥5¥", u"\"5\""},
        {u"‘x’＇", u"'x''"},
        {u"一 二 另", u"1 2 0"},
        {u"３：４﹕︰", u"3:4::"},
        {u"≧≦", u"≥≤"},
        {u"π∏", u"ΠΠ"},
        {u"Ａｂ", u"Ab"},
        {u"～｀＃＠＄＆？", u"~`#@$&?"},
        {u"＿﹣－", u"_--"},
        {u"﹡＊×÷／", u"***//"},
        {u"｜", u"|"},
        {u"乘以", u"乘以"},                   // words are not operators here
        {u"﹦＝＜＞", u"==<>"},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        EXPECT_EQ(规整文本字符(Q(e.输入)), Q(e.期望));
    }
}
