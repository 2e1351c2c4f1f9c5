// Pure text machinery of the script language: statement recognition, the
// bracket groups every compound statement rests on, and the small readers
// of script_detail.h. None of these evaluates anything.
#include "script_fixture.h"

#include "script/script_detail.h"

#include <array>
#include <cmath>

using namespace script_detail;

TEST(语句识别, FirstMarkWinsAnywhereInTheStatement) {
    struct 例 { const char16_t* 句; int 种; };
    const 例 表[] = {
        {u"IF(1)(F=1)(F=0)", 1},
        {u"IF(1)(U=(1,2))(F=0)", 1},       // IF beats the comma inside
        {u"F=DIFF+1", 1},                  // "IF" inside a word still counts
        {u"F=SIN(X),1", 2},                // a comma makes an array statement
        {u"F=\u03A3(1)(3)(U),", 2},        // comma beats Σ
        {u"F=\u03A3(0)(5)(U)", 3},
        {u"F=\u03A3(0)(1)(\u222B)", 3},    // Σ beats ∫
        {u"F=\u222B(0)(2)(X)(100)", 4},
        {u"\u2192A=\u222B(0)(1)(X)", 4},   // ∫ beats the arrow
        {u"\u2192Y=3+4*X-Z", 5},
        {u"\u2192X", 5},
        {u"F=X+1", 6},
        {u"X+1", 7},
        {u"", 7},
        {u"If(1)(F=1)", 6},                // case matters: the runner upper-cases first
    };
    for (const auto& e : 表) EXPECT_EQ(语句种类(QString::fromUtf16(e.句)), e.种) << QString::fromUtf16(e.句).toStdString();
}

TEST(配对括号, DepthCountingFromTheOpeningBracket) {
    struct 例 { const char16_t* 文; int 开; int 闭; };
    const 例 表[] = {
        {u"(a(b)c)", 1, 7},
        {u"(a(b)c)", 3, 5},
        {u"((()))", 2, 5},
        {u"(()", 1, 0},          // text ends first
        {u"x)", 1, 2},           // the character at the start is not looked at
        {u"()", 0, 0},           // no opening position
        {u"()", -3, 0},
        {u"()", 5, 0},           // beyond the text
        {u"(1)(2)", 4, 6},
    };
    for (const auto& e : 表)
        EXPECT_EQ(配对括号位置(QString::fromUtf16(e.文), e.开), e.闭) << QString::fromUtf16(e.文).toStdString() << " @" << e.开;
}

TEST(括号组, GroupsPositionsAndLastEnd) {
    using G = std::array<int, 8>;
    struct 例 { const char16_t* 文; int 起; bool 成; G 组; int 末; };
    const 例 表[] = {
        // summation from Σ: three groups, no fourth
        {u"F=\u03A3(0)(5)(U)", 3, true, {4, 6, 7, 9, 10, 12, 0, 0}, 12},
        // integral term: the fourth group is the strip count
        {u"\u222B(0)(2)(X)(100)", 1, true, {2, 4, 5, 7, 8, 10, 11, 15}, 15},
        {u"\u222B(0)(2)(X)", 1, true, {2, 4, 5, 7, 8, 10, 0, 0}, 10},
        {u"IF(1)(F=1)(F=0)", 1, true, {3, 5, 6, 10, 11, 15, 0, 0}, 15},
        // nested brackets inside the groups
        {u"F=\u03A3((1))(2*(3))(U)", 3, true, {4, 8, 9, 15, 16, 18, 0, 0}, 18},
        {u"\u222B(0)(2)(X)((5))", 1, true, {2, 4, 5, 7, 8, 10, 11, 15}, 15},
        // missing or unclosed third group
        {u"F=\u03A3(0)(5)", 3, false, {4, 6, 7, 9, 0, 0, 0, 0}, 0},
        {u"F=\u03A3(0)(5)(U", 3, false, {4, 6, 7, 9, 10, 0, 0, 0}, 0},
        {u"F=1", 1, false, {0, 0, 0, 0, 0, 0, 0, 0}, 0},
        // the search starts at the start position
        {u"(1)(2)(3)(4)", 5, false, {7, 9, 10, 12, 0, 0, 0, 0}, 0},
        {u"(1)(2)(3)(4)", 1, true, {1, 3, 4, 6, 7, 9, 10, 12}, 12},
        {u"(1)(2)(3)(4)", 0, true, {1, 3, 4, 6, 7, 9, 10, 12}, 12},
        // group 4 only when group 3 opens at 6 or later
        {u"()()()(4)", 1, true, {1, 2, 3, 4, 5, 6, 0, 0}, 6},
        // ... and when no stray ")" stands between group 3 and group 4
        {u"\u222B(0)(2)(X))(5)", 1, true, {2, 4, 5, 7, 8, 10, 0, 0}, 10},
        // an unclosed fourth group does not count
        {u"\u222B(0)(2)(X)(5", 1, true, {2, 4, 5, 7, 8, 10, 0, 0}, 10},
    };
    for (const auto& e : 表) {
        const QString s = QString::fromUtf16(e.文);
        公共.括号组位置.fill(-1);
        EXPECT_EQ(分析括号组(s, e.起), e.成) << s.toStdString();
        for (int k = 0; k < 8; ++k) EXPECT_EQ(公共.括号组位置[k], e.组[k]) << s.toStdString() << " slot " << k;
        EXPECT_EQ(括号组末位(s, e.起), e.末) << s.toStdString();
    }
}

TEST(括号组, GroupTextsBetweenTheBrackets) {
    const QString s = QString::fromUtf16(u"\u222B(0)(2*(3))()(100)");
    ASSERT_TRUE(分析括号组(s, 1));
    EXPECT_EQ(括号组文本(s, 1), u"0"_qs);
    EXPECT_EQ(括号组文本(s, 2), u"2*(3)"_qs);
    EXPECT_EQ(括号组文本(s, 3), QString());
    EXPECT_EQ(括号组文本(s, 4), u"100"_qs);
    EXPECT_EQ(括号组文本(s, 5), QString());
}

TEST(脚本辅助, TargetLetter) {
    struct 例 { const char16_t* 左; char16_t 名; };
    const 例 表[] = {
        {u"G", u'G'}, {u"AB", u'A'}, {u"O", u'F'}, {u"OO", u'F'}, {u"", u'F'},
        {u"2A", u'F'}, {u"面积", u'F'}, {u"Z", u'Z'}, {u"a", u'F'},
    };
    for (const auto& e : 表) EXPECT_EQ(目标字母(QString::fromUtf16(e.左)), QChar(e.名)) << QString::fromUtf16(e.左).toStdString();
}

TEST(脚本辅助, SignOfNumberText) {
    struct 例 { 数值 值; int 号; };
    const 例 表[] = {
        {数值(u"-0.000"), 0}, {数值(u"0"), 0}, {数值(u""), 0}, {数值(u"abc"), 0},
        {数值(u"0.0000000000000000000000000001"), 1}, {数值(u"-1E-05"), -1},
        {数值(u"1E+30"), 1}, {数值(-2.5), -1}, {数值(0), 0}, {数值(7), 1}, {数值(), 0},
        {数值(u"0E+5"), 0},
    };
    for (const auto& e : 表) EXPECT_EQ(数值符号(e.值), e.号) << e.值.文本().toStdString();
}

TEST(脚本辅助, IntegerRoundingHalfEvenAndRange) {
    struct 例 { const char16_t* 文; bool 成; std::int32_t 值; };
    const 例 表[] = {
        {u"2.5", true, 2}, {u"3.5", true, 4}, {u"-2.5", true, -2}, {u"-3.5", true, -4},
        {u"2.5000000000000000000000000001", true, 3},  // exact on the decimal, not the double
        {u"2147483647", true, 2147483647}, {u"2147483647.4", true, 2147483647},
        {u"2147483647.5", false, 0}, {u"-2147483648", true, -2147483647 - 1},
        {u"-2147483648.6", false, 0}, {u"1E+30", false, 0}, {u"1E+9", true, 1000000000},
        {u"abc", false, 0}, {u"", false, 0}, {u" 7 ", true, 7},
    };
    for (const auto& e : 表) {
        std::int32_t n = -99;
        EXPECT_EQ(取整数(QString::fromUtf16(e.文), n), e.成) << QString::fromUtf16(e.文).toStdString();
        if (e.成) {
            EXPECT_EQ(n, e.值) << QString::fromUtf16(e.文).toStdString();
        }
    }
}

TEST(脚本辅助, LenientLeadingNumber) {
    struct 例 { const char16_t* 文; double 值; };
    const 例 表[] = {
        {u"1.5abc", 1.5}, {u"abc", 0}, {u" -2E3x", -2000}, {u"5E", 5}, {u"5E+", 5},
        {u".", 0}, {u"-.5", -0.5}, {u"+7", 7}, {u"1.2.3", 1.2}, {u"1E-999", 0},
        {u"2.5E-3", 0.0025}, {u"", 0}, {u"1", 1},
    };
    for (const auto& e : 表) EXPECT_DOUBLE_EQ(宽松读数(QString::fromUtf16(e.文)), e.值) << QString::fromUtf16(e.文).toStdString();
    EXPECT_TRUE(std::isinf(宽松读数(u"1E+999"_qs)));
    EXPECT_LT(宽松读数(u"-1E+999"_qs), 0);
}

TEST(脚本辅助, ArrayListRange) {
    struct 例 { const char16_t* 句; int 起; int 止; };
    const 例 表[] = {
        {u"U=(1,3,5)", 4, 8},
        {u"U=1,2,3", 3, 7},         // no bracket: from behind "=" to the end
        {u"U=(1,2", 4, 6},          // unmatched: to the end
        {u"U=(),", 4, 3},           // empty list: start behind end
        {u"U=1,(2,3)", 6, 8},       // the first "(" anywhere behind "="
        {u"(U=1,2", 4, 6},          // a "(" ahead of "=" does not count
    };
    for (const auto& e : 表) {
        const QString s = QString::fromUtf16(e.句);
        int a = 0, b = 0;
        数组列表范围(s, txt::instr(s, u"="_qs), a, b);
        EXPECT_EQ(a, e.起) << s.toStdString();
        EXPECT_EQ(b, e.止) << s.toStdString();
    }
}

TEST(脚本辅助, DropClosingSemicolon) {
    EXPECT_EQ(去末分号(u"F=1;"_qs), u"F=1"_qs);
    EXPECT_EQ(去末分号(u"F=1;;"_qs), u"F=1;"_qs);
    EXPECT_EQ(去末分号(u" F=1 "_qs), u"F=1"_qs);
}
