// The text machinery of the script language: statement recognition, the
// bracket groups every compound statement rests on, the small readers of
// script_detail.h, and the canonical form written when a formula is saved.
#include "script_fixture.h"

#include "script/script_detail.h"

#include <array>
#include <cmath>

using namespace script_detail;

TEST(语句识别, FirstMarkWinsAnywhereInTheStatement) {
    const struct { const char16_t* 句; int 种; } 表[] = {
        {u"IF(1)(F=1)(F=0)", 1},    {u"IF(1)(U=(1,2))(F=0)", 1},   // IF beats the comma inside
        {u"F=DIFF+1", 1},                                           // "IF" inside a word still counts
        {u"F=SIN(X),1", 2},         {u"F=\u03A3(1)(3)(U),", 2},    // comma beats Σ
        {u"F=\u03A3(0)(5)(U)", 3},  {u"F=\u03A3(0)(1)(\u222B)", 3},  // Σ beats ∫
        {u"F=\u222B(0)(2)(X)(100)", 4}, {u"\u2192A=\u222B(0)(1)(X)", 4},   // ∫ beats the arrow
        {u"\u2192Y=3+4*X-Z", 5},    {u"F=X+1", 6},     {u"X+1", 7},    {u"", 7},
        {u"If(1)(F=1)", 6},                                         // case matters: the runner upper-cases first
    };
    for (const auto& e : 表) EXPECT_EQ(语句种类(Q(e.句)), e.种) << 文(Q(e.句));
}

TEST(配对括号, DepthCountingFromTheOpeningBracket) {
    const struct { const char16_t* 文; int 开, 闭; } 表[] = {
        {u"(a(b)c)", 1, 7}, {u"(a(b)c)", 3, 5}, {u"((()))", 2, 5}, {u"(()", 1, 0},   // text ends first
        {u"x)", 1, 2},      // the character at the start is not looked at
        {u"()", 0, 0}, {u"()", -3, 0}, {u"()", 5, 0}, {u"(1)(2)", 4, 6},
    };
    for (const auto& e : 表) EXPECT_EQ(配对括号位置(Q(e.文), e.开), e.闭) << 文(Q(e.文)) << " @" << e.开;
    const QString 深 = QString(5000, u'(') + u'1' + QString(5000, u')');
    EXPECT_EQ(配对括号位置(深, 1), 深.size());
}

TEST(括号组, GroupsPositionsAndLastEnd) {
    using G = std::array<int, 8>;
    const struct { const char16_t* 文; int 起; bool 成; G 组; int 末; } 表[] = {
        {u"F=\u03A3(0)(5)(U)", 3, true, {4, 6, 7, 9, 10, 12, 0, 0}, 12},
        {u"\u222B(0)(2)(X)(100)", 1, true, {2, 4, 5, 7, 8, 10, 11, 15}, 15},   // the fourth group: strips
        {u"\u222B(0)(2)(X)", 1, true, {2, 4, 5, 7, 8, 10, 0, 0}, 10},
        {u"IF(1)(F=1)(F=0)", 1, true, {3, 5, 6, 10, 11, 15, 0, 0}, 15},
        {u"F=\u03A3((1))(2*(3))(U)", 3, true, {4, 8, 9, 15, 16, 18, 0, 0}, 18},   // nested brackets
        {u"F=\u03A3(0)", 3, false, {4, 6, 0, 0, 0, 0, 0, 0}, 0},
        {u"F=\u03A3(0)(5)", 3, false, {4, 6, 7, 9, 0, 0, 0, 0}, 0},
        {u"F=\u03A3(0)(5)(U", 3, false, {4, 6, 7, 9, 10, 0, 0, 0}, 0},
        {u"F=1", 1, false, {0, 0, 0, 0, 0, 0, 0, 0}, 0},
        {u"(1)(2)(3)(4)", 5, false, {7, 9, 10, 12, 0, 0, 0, 0}, 0},   // the search starts at the start
        {u"(1)(2)(3)(4)", 1, true, {1, 3, 4, 6, 7, 9, 10, 12}, 12},
        {u"(1)(2)(3)(4)", 0, true, {1, 3, 4, 6, 7, 9, 10, 12}, 12},
        {u"()()()(4)", 1, true, {1, 2, 3, 4, 5, 6, 0, 0}, 6},           // group 3 opens before 6: no group 4
        {u"\u222B()()()(5)", 1, true, {2, 3, 4, 5, 6, 7, 8, 10}, 10},   // ... at 6, group 4 at 8: both limits
        {u"\u222B(0)(2)(X))(5)", 1, true, {2, 4, 5, 7, 8, 10, 0, 0}, 10},   // a stray ")" ahead of group 4
        {u"\u222B(0)(2)(X)(5", 1, true, {2, 4, 5, 7, 8, 10, 0, 0}, 10},     // an unclosed fourth group
    };
    for (const auto& e : 表) {
        const QString s = Q(e.文);
        脚本状态.括号组位置.fill(-1);
        EXPECT_EQ(分析括号组(s, e.起), e.成) << 文(s);
        for (int k = 0; k < 8; ++k) EXPECT_EQ(脚本状态.括号组位置[k], e.组[k]) << 文(s) << " slot " << k;
        EXPECT_EQ(括号组末位(s, e.起), e.末) << 文(s);
    }
    const QString s = Q(u"\u222B(0)(2*(3))()(100)");
    ASSERT_TRUE(分析括号组(s, 1));
    EXPECT_EQ(括号组文本(s, 2), u"2*(3)"_qs);
    EXPECT_EQ(括号组文本(s, 3), QString());
    EXPECT_EQ(括号组文本(s, 4), u"100"_qs);
    EXPECT_EQ(括号组文本(s, 5), QString());
}

TEST(脚本辅助, SmallReaders) {
    const struct { const char16_t* 文; bool 成; std::int32_t 值; } 整[] = {
        {u"2.5", true, 2}, {u"3.5", true, 4}, {u"-2.5", true, -2},
        {u"2.5000000000000000000000000001", true, 3},   // exact on the decimal, not the double
        {u"2147483647.4", true, 2147483647}, {u"2147483647.5", false, 0}, {u"-2147483648", true, -2147483647 - 1},
        {u"-2147483648.6", false, 0}, {u"1E+30", false, 0}, {u"abc", false, 0}, {u" 7 ", true, 7},
    };
    for (const auto& e : 整) {
        std::int32_t n = -99;
        EXPECT_EQ(取整数(Q(e.文), n), e.成) << 文(Q(e.文));
        if (e.成) { EXPECT_EQ(n, e.值) << 文(Q(e.文)); }
    }
    const struct { const char16_t* 文; double 值; } 读[] = {
        {u"1.5abc", 1.5}, {u"abc", 0}, {u" -2E3x", -2000}, {u"5E", 5}, {u"5E+", 5}, {u".", 0}, {u"+7", 7},
        {u"-.5", -0.5}, {u"1.2.3", 1.2}, {u"1E-999", 0}, {u"", 0},
    };
    for (const auto& e : 读) EXPECT_DOUBLE_EQ(宽松读数(Q(e.文)), e.值) << 文(Q(e.文));
    EXPECT_TRUE(std::isinf(宽松读数(u"1E+999"_qs)));
    EXPECT_LT(宽松读数(u"-1E+999"_qs), 0);
    const struct { const char16_t* 句; int 起, 止; } 范[] = {
        {u"U=(1,3,5)", 4, 8}, {u"U=1,2,3", 3, 7},   // no bracket: from behind "=" to the end
        {u"U=(1,2", 4, 6},                          // unmatched: to the end
        {u"U=(),", 4, 3},                           // empty list: start behind end
        {u"U=1,(2,3)", 6, 8},                       // the first "(" anywhere behind "="
        {u"(U=1,2", 4, 6},                          // a "(" ahead of "=" does not count
    };
    for (const auto& e : 范) {
        const QString s = Q(e.句);
        int a = 0, b = 0;
        数组列表范围(s, txt::instr(s, u"="_qs), a, b);
        EXPECT_EQ(a, e.起) << 文(s);
        EXPECT_EQ(b, e.止) << 文(s);
    }
    EXPECT_EQ(去末分号(u"F=1;;"_qs), u"F=1;"_qs);
    EXPECT_EQ(去末分号(u" F=1 "_qs), u"F=1"_qs);
}

// ---------------------------------------------------------- canonical form

using 规整 = 脚本测试;

TEST_F(规整, CanonicalFormsAndRejections) {
    const struct { const char16_t* 入; const char16_t* 出; } 表[] = {
        {u"", u"0"}, {u"\u4F60\u597D", u"0"},                     // nothing left
        // assignment
        {u"f = x + 1 ;", u"F = X + 1;  "}, {u"AB=2X", u"A = 2 * X;  "}, {u"O=5", u"F = 5;  "}, {u"2A=5", u"F = 5;  "},
        {u"ABCDEF=1", u"A = 1;  "},                               // "=" at 7: accepted
        {u"ABCDEFG=1", u"请修改F=0;  "},                          // "=" at 8: rejected
        {u"=5", u"请修改F=0;  "}, {u"F=", u"请修改F=0;  "},
        // arrow output (labels keep only script characters)
        {u"\u2192AREA=X*Y", u"\u2192AREA = X * Y;  "},
        {u"\u2192\u9762\u79EF=X*Y", u"请修改\u2192F=0;  "},        // the label vanishes
        {u"\u2192ABCDEFGHIJK=1", u"\u2192ABCDEFGHIJK = 1;  "},     // "=" at 13
        {u"\u2192ABCDEFGHIJKL=1", u"请修改\u2192F=0;  "},          // "=" at 14
        {u"\u2192A=", u"请修改\u2192F=0;  "}, {u"X\u2192A=1", u"请修改\u2192F=0;  "},
        // array: every item followed by a comma
        {u"U=(1,3,5)", u"U = (1,3,5,);  "}, {u"V=(1.50,007)", u"V = (1.5,7,);  "}, {u"Q=(1,2)", u"W = (1,2,);  "},
        {u"U=1,2", u"U = (1,2,);  "}, {u"U,=1", u"请修改U=(1,3,5);  "}, {u"U=(),5", u"请修改U=(1,3,5);  "},
        {u"ABCDEFGHIJKL=1,2", u"请修改U=(1,3,5);  "},              // "=" at 13
        // summation
        {u"G=\u03A3(1)(N)(U*V)", u"G = \u03A3(1)(N)(U * V);  "},
        {u"f=\u03C3(1)(3)(u)", u"F = \u03A3(1)(3)(U);  "},         // σ upper-cases to Σ
        {u"OO=\u03A3(1)(3)(U)", u"F = \u03A3(1)(3)(U);  "},
        {u"F=\u03A3(1)(3)(U)X", u"F = \u03A3(1)(3)(U);  "},        // the tail is not kept
        {u"\u03A3(1)(3)(U)", u"请修改F=\u03A3(0)(5)(U);  "}, {u"ABCD=\u03A3(1)(3)(U)", u"请修改F=\u03A3(0)(5)(U);  "},
        {u"F=\u03A3(1)(3)", u"请修改F=\u03A3(0)(5)(U);  "},
        // integral: 100 strips written when none is given
        {u"F=\u222B(0)(2)(X)", u"F = \u222B(0)(2)(X)(100);  "},
        {u"F=\u222B(0)(2)(X^2)(50)", u"F = \u222B(0)(2)(X ^ 2)(50);  "},
        {u"G=\u222B(0)(1)(X)", u"G = \u222B(0)(1)(X)(100);  "}, {u"\u222B(0)(2)(X)", u"F = \u222B(0)(2)(X)(100);  "},
        {u"F=\u222B(0)(2)", u"F = 积分算式的格式应为 \u222B(0)(2)(X)(100);  "},
        // conditional: branches are canonical assignments
        {u"if(X-1)(F=1)(F=0)", u"If(X - 1)(F = 1)(F = 0);  "}, {u"IF(0)(F=1)()", u"If(0)(F = 1)(请修改F=0);  "},
        {u"XXIF(1)(F=1)(F=0)", u"请修改If(1)(F=1)(F=0);  "}, {u"IF(1)(F=1)", u"请修改If(1)(F=1)(F=0);  "},
        // plain output, several statements, characters outside the alphabet
        {u"2X+1", u"2 * X + 1;  "}, {u"A=1;B=2;A+B", u"A = 1;  B = 2;  A + B;  "}, {u"F=X+1;;", u"F = X + 1;  0;  "},
        {u"F=1\uFF0C2", u"F = 12;  "}, {u"F=1\u3000+2", u"F = 1 + 2;  "},
    };
    for (const auto& e : 表) EXPECT_EQ(规整算式(Q(e.入)), Q(e.出)) << 文(Q(e.入));
    EXPECT_EQ(规整积分赋值算式(u"F=1"_qs), Q(u"积分赋值算式的格式应为 F=\u222B(0)(2)(X)(100)"));
    EXPECT_EQ(规整积分算式(u"(0)(2)(X)"_qs), Q(u"积分算式的格式应为 \u222B(0)(2)(X)(100)"));
    EXPECT_EQ(规整积分算式(Q(u"\u222B(0)(1)(X)(7)")), Q(u"\u222B(0)(1)(X)(7)"));
}

TEST_F(规整, UnreadableNamesAreMarkedAndLeaveTheLastStatementsErrors) {
    EXPECT_TRUE(规整算式(u"F=QQ+1;G=1"_qs).startsWith(Q(u"F = QQ + 1请修改;  ")));
    EXPECT_EQ(计算状态.错误数, 0);   // the last statement's normalisation reset it
    规整算式(u"G=1;F=QQ+1"_qs);
    EXPECT_GE(计算状态.错误数, 1);
}

TEST_F(规整, CanonicalIsStableAndRunsLikeTheTypedScript) {
    for (const char16_t* s : {u"X=3;Y=4;\u2192D=(X^2+Y^2)^0.5", u"U=(-5,2);F=\u03A3(1)(2)(U^2);F",
                              u"A=2;IF(A-1)(B=10)(B=20);B*2", u"F=\u222B(0)(1)(X)(10);\u2192R=F"}) {
        重置脚本状态();
        const QString 规 = 规整算式(Q(s));
        EXPECT_EQ(规整算式(规), 规) << 文(Q(s));
        重置脚本状态();
        const QString 原出 = 运行算式(Q(s));
        ASSERT_EQ(计算状态.错误数, 0) << 文(Q(s)) << 文(计算状态.错误记录);
        重置脚本状态();
        EXPECT_EQ(运行算式(规), 原出) << 文(规);
        EXPECT_EQ(计算状态.错误数, 0) << 文(规) << 文(计算状态.错误记录);
    }
    // A rejected conditional fails the run; a rejected arrow shows the
    // arrow's failure literal in the output.
    const QString 规 = 规整算式(u"XXIF(1)(F=1)(F=0);1"_qs);
    重置脚本状态();
    运行算式(规);
    EXPECT_EQ(计算状态.首个错误, Q(u"计算条件判断算式时----出现错误了！"));
    const QString 规2 = 规整算式(Q(u"\u2192=5;2"));
    重置脚本状态();
    EXPECT_EQ(运行算式(规2), Q(u"计算常规输出算式时---出错了！; 2"));
}
