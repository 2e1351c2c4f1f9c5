// The runner and the six statement kinds other than the integral: what each
// stores, what each adds to the output, how failures pile up; and whole
// formulas of the kind the atlas holds.
#include "script_fixture.h"

#include <cmath>

using 运行 = 脚本测试;
using 累计 = 脚本测试;
using 数组 = 脚本测试;
using 条件 = 脚本测试;

const QString k输出失败 = Q(u"计算常规输出算式时---出错了！");

// ------------------------------------------------------------------ runner

TEST_F(运行, OutputsJoinedAndVariablesCarried) {
    const struct { const char16_t* 脚本; const char16_t* 输出; } 表[] = {
        {u"", u"0"},
        {u"X+1", u"3"},                      // X is 2 below
        {u"F=1;G=F+1;G", u"2"},
        {u"A=1;B=2", u""},                   // assignments only: no output
        {u"A=1;;B=2", u"0"},                 // the empty statement evaluates to 0
        {u"1;2;3;", u"1; 2; 3"},             // the closing ";" adds nothing
        {u"f=2;f*3", u"6"},                  // upper-cased first
        {u"F = 1 + 2 ; F", u"3"},            // blanks removed first
        {u"\u2192\u9762\u79EF=3*4;\u2192\u5468\u957F=2*(3+4)", u"\u9762\u79EF = 12; \u5468\u957F = 14"},
        {u"X;\u2192=5", u"2; 5"},            // a blank label gives the value alone
    };
    for (const auto& e : 表) {
        重置脚本状态();
        变量(u'X') = 数值(u"2");
        EXPECT_EQ(运行算式(Q(e.脚本)), Q(e.输出)) << 文(Q(e.脚本));
        EXPECT_EQ(公共.错误数, 0) << 文(Q(e.脚本)) << " " << 文(公共.错误记录);
        if (*e.脚本) { EXPECT_EQ(公共.脚本输出, Q(e.输出)); }   // the runner leaves its output in the state
    }
    运行算式(Q(u"K=41;\u2192F=12"));
    EXPECT_EQ(运行算式(u"K+1"_qs), u"42"_qs);   // variables persist across runs
    EXPECT_EQ(变量文本(u'F'), u"0"_qs);         // an arrow's value is not stored
}

TEST_F(运行, FailureInTheMiddleVoidsTheRest) {
    变量(u'G') = 数值(u"7");
    const QString 出 = 运行算式(Q(u"F=1;H=1/0;G=5;G;\u2192K=1;F"));
    EXPECT_TRUE(公共.错误记录.startsWith(公共.首个错误));
    EXPECT_EQ(变量文本(u'F'), u"1"_qs);   // before the failure: stored
    EXPECT_EQ(变量文本(u'G'), u"7"_qs);   // after it: nothing stored
    // Plain outputs add the marker "1", arrow outputs their failure literal.
    EXPECT_EQ(出, u"1; "_qs + k输出失败 + u"; 1"_qs);
    // The runner does not reset the collector itself.
    重置脚本状态();
    报告错误(u"earlier"_qs);
    EXPECT_EQ(运行算式(u"F=5;F"_qs), u"1"_qs);
    EXPECT_EQ(公共.首个错误, u"earlier"_qs);
    EXPECT_EQ(变量文本(u'F'), u"0"_qs);
}

TEST_F(运行, AssignmentTargets) {
    const struct { const char16_t* 句; char16_t 名; const char16_t* 值; } 表[] = {
        {u"F=2+3", u'F', u"5"}, {u"O=5", u'F', u"5"},   // O is no variable
        {u"AB=1", u'A', u"1"}, {u"2A=3", u'F', u"3"},   // no leading letters
        {u"Z=1/4;", u'Z', u"0.25"},                      // one closing ";" is dropped
        {u"Y=", u'Y', u"0"},                             // an empty right side evaluates to 0
    };
    for (const auto& e : 表) {
        重置脚本状态();
        EXPECT_TRUE(赋值算式(Q(e.句))) << 文(Q(e.句));
        EXPECT_EQ(变量文本(e.名), Q(e.值)) << 文(Q(e.句));
    }
    EXPECT_FALSE(赋值算式(u"F"_qs));   // no "=": false, no message
    EXPECT_EQ(公共.错误数, 0);
    报告错误(u"x"_qs);
    EXPECT_FALSE(赋值算式(u"F=9"_qs));
    EXPECT_EQ(变量文本(u'F'), u"0"_qs);
}

TEST_F(运行, ArrowRoundsToOutputDecimalsOrFails) {
    const struct { int 位; const char16_t* 句; const char16_t* 出; } 表[] = {
        {2, u"\u2192A=2/3", u"A = 0.67"},
        {2, u"\u2192A=1.005", u"A = 1.01"},    // half away from zero on the digits
        {0, u"\u2192N=2.5", u"N = 3"}, {8, u"\u2192\u5BBD=1/8", u"\u5BBD = 0.125"},
        {3, u"\u2192 =7;", u"7"},              // blank label, closing ";"
    };
    for (const auto& e : 表) {
        公共.输出小数位数 = e.位;
        EXPECT_EQ(常规输出算式(Q(e.句)), Q(e.出)) << 文(Q(e.句));
    }
    EXPECT_EQ(公共.错误数, 0);
    // Not an arrow: the literal, and no error of its own.
    EXPECT_EQ(常规输出算式(u"F=1"_qs), k输出失败);
    EXPECT_EQ(公共.错误数, 0);
    // No "=": the arrow itself goes to the evaluator, which refuses it.
    EXPECT_EQ(常规输出算式(Q(u"\u21925")), k输出失败);
    EXPECT_GE(公共.错误数, 1);
}

// ------------------------------------------------------------- summation

TEST_F(累计, SumsOverTheArrays) {
    const struct { const char16_t* 句; char16_t 名; const char16_t* 值; } 表[] = {
        {u"F=\u03A3(1)(3)(U)", u'F', u"9"},
        {u"F=\u03A3(5)(1)(U)", u'F', u"9"},          // bounds swapped; U(4), U(5) read 0
        {u"F=\u03A3(0)(0)(U)", u'F', u"1"},          // one round, i = 1
        {u"F=\u03A3(-3)(2)(U)", u'F', u"4"},         // raised to 1..2
        {u"F=\u03A3(1)(3)(U*V)", u'F', u"2"},        // V shorter: reads 0 from there on
        {u"F=\u03A3(2)(3)(U+W)", u'F', u"28"},       // 3+10 + 5+10
        {u"F=\u03A3(1)(4)(2)", u'F', u"8"},          // a plain repeated sum
        {u"F=\u03A3(1)(2.5)(1)", u'F', u"2"},        // bound rounded half to even
        {u"F=\u03A3(1)(3.5)(1)", u'F', u"4"}, {u"G=\u03A3(1)(3)(U);", u'G', u"9"},
        {u"OO=\u03A3(1)(3)(U)", u'F', u"9"},
        {u"F=\u03A3(1)(3)(U/10)", u'F', u"0.9"},     // exact decimal sum
    };
    for (const auto& e : 表) {
        重置脚本状态();
        置数组(公共.数组U, {u"1"_qs, u"3"_qs, u"5"_qs});
        置数组(公共.数组V, {u"2"_qs});
        置数组(公共.数组W, {u"10"_qs, u"10"_qs, u"10"_qs});
        变量(u'U') = 数值(u"7");
        EXPECT_TRUE(累计赋值算式(Q(e.句))) << 文(Q(e.句)) << " " << 文(公共.错误记录);
        EXPECT_EQ(变量文本(e.名), Q(e.值)) << 文(Q(e.句));
        EXPECT_EQ(变量文本(u'U'), u"7"_qs);   // the loop letters are put back
    }
}

TEST_F(累计, FailureInTheLoopLeavesThatRoundsElements) {
    置数组(公共.数组U, {u"1"_qs, u"3"_qs, u"5"_qs});
    变量(u'U') = 数值(u"7");
    变量(u'F') = 数值(u"42");
    EXPECT_FALSE(累计赋值算式(Q(u"F=\u03A3(1)(3)(1/(U-3))")));
    EXPECT_EQ(变量文本(u'U'), u"3"_qs);   // the round that failed
    EXPECT_EQ(变量文本(u'F'), u"42"_qs);  // nothing stored
    EXPECT_GE(公共.错误数, 2);             // the evaluator's message, then the literal
    EXPECT_TRUE(公共.错误记录.endsWith(Q(u"计算累计赋值算式时----出现错误了！\r\n")));
}

TEST_F(累计, MalformedStatementsFailWithTheLiteral) {
    const char16_t* 表[] = {
        u"F=\u03A3(1)(3)(U)X",          // text behind group 3
        u"F=\u03A3(1)(3)(U)(4)",        // a fourth group
        u"F=\u03A3(1)(3)",              // group 3 missing
        u"=\u03A3(1)(3)(U)",            // "=" at position 1
        u"F\u03A3=(1)(3)(U)",           // Σ at 2
        u"F=\u03A3(1/0)(3)(U)",         // a bound that fails
        u"F=\u03A3(1)(1E+12)(1)",       // a bound outside 32 bits: fails at once
        u"F=\u03A3(1)(2E+9)(1/0)",      // huge range, failing expression: stops at round 1
    };
    for (const char16_t* s : 表) {
        重置脚本状态();
        置数组(公共.数组U, {u"1"_qs, u"3"_qs, u"5"_qs});
        变量(u'F') = 数值(u"42");
        EXPECT_FALSE(累计赋值算式(Q(s))) << 文(Q(s));
        EXPECT_EQ(公共.错误提示, Q(u"计算累计赋值算式时----出现错误了！")) << 文(Q(s));
        EXPECT_EQ(变量文本(u'F'), u"42"_qs);
    }
}

// ---------------------------------------------------------------- arrays

TEST_F(数组, FillsTheNamedArray) {
    const struct { const char16_t* 句; char16_t 名; const char16_t* 列表; QStringList 元素; } 表[] = {
        {u"U=(1,3,5)", u'U', u"1,3,5,", {u"1"_qs, u"3"_qs, u"5"_qs}},
        {u"U=(1,3,5,)", u'U', u"1,3,5,", {u"1"_qs, u"3"_qs, u"5"_qs}}, {u"V=(7,)", u'V', u"7,", {u"7"_qs}},
        {u"Q=(1,2)", u'W', u"1,2,", {u"1"_qs, u"2"_qs}}, {u"U=1,2,3", u'U', u"1,2,3,", {u"1"_qs, u"2"_qs, u"3"_qs}},
        {u"U=(1.50,007,-2)", u'U', u"1.50,007,-2,", {u"1.5"_qs, u"7"_qs, u"-2"_qs}},
        {u"U=(1,,3)", u'U', u"1,,3,", {u"1"_qs, u"0"_qs, u"3"_qs}},
        {u"V=(1,2)(3)", u'V', u"1,2,", {u"1"_qs, u"2"_qs}},   // only the first bracket pair
    };
    for (const auto& e : 表) {
        重置脚本状态();
        EXPECT_TRUE(数组赋值算式(Q(e.句))) << 文(Q(e.句));
        const 数组变量& a = e.名 == u'U' ? 公共.数组U : e.名 == u'V' ? 公共.数组V : 公共.数组W;
        EXPECT_EQ(a.个数, e.元素.size()) << 文(Q(e.句));
        EXPECT_EQ(a.列表文本, Q(e.列表)) << 文(Q(e.句));
        EXPECT_EQ(a.元素, QStringList{QString()} + e.元素) << 文(Q(e.句));
        EXPECT_EQ(公共.错误数, 0);
    }
    // Items are converted, not evaluated: X fails as a number.
    EXPECT_TRUE(数组赋值算式(u"U=(X,2)"_qs));
    EXPECT_EQ(公共.数组U.元素.value(1), u"1"_qs);
    EXPECT_EQ(公共.错误数, 1);
}

TEST_F(数组, FailuresKeepTheFormerContent) {
    for (const char16_t* s : {u"U,=1", u"U=(),", u"=U(1,2)", u"U=,5", u"UV"}) {
        重置脚本状态();
        置数组(公共.数组U, {u"8"_qs, u"9"_qs});
        EXPECT_FALSE(数组赋值算式(Q(s))) << 文(Q(s));
        EXPECT_EQ(公共.错误提示, Q(u"计算数组赋值算式时----出现错误了！"));
        EXPECT_EQ(公共.数组U.元素.value(2), u"9"_qs);
    }
    // A comma inside a function call makes an array statement of the whole.
    重置脚本状态();
    变量(u'F') = 数值(u"3");
    运行算式(u"F=SIN(X),1"_qs);
    EXPECT_EQ(变量文本(u'F'), u"3"_qs);   // no assignment took place
    EXPECT_EQ(公共.数组W.个数, 1);        // the list inside the first bracket: "X"
}

// ----------------------------------------------------------- conditional

TEST_F(条件, BranchesByTheSignOfTheCondition) {
    const struct { const char16_t* 句; bool 成; const char16_t* F; } 表[] = {
        {u"IF(1)(F=1)(F=2)", true, u"1"}, {u"IF(0)(F=1)(F=2)", true, u"2"}, {u"IF(-1)(F=1)(F=2)", true, u"2"},
        {u"IF(0.0000000000000000000000000001)(F=1)(F=2)", true, u"1"},
        {u"IF(0)(F=1)()", true, u"9"},            // short else: no else
        {u"IF(1)(F+1)(G=1)", true, u"9"},         // a branch without "=" is skipped
        {u"IF(1)(O=3)(G=1)", true, u"3"},         // O goes to F
        {u"IF(1)(F=1)(F=0);", true, u"1"},
        {u"IF(1)()(F=0)", false, u"9"},           // short then: an error
        {u"IF(1)(F=1)(F=0)X", false, u"9"}, {u"IF(1)(F=1)(F=0)(G=2)", false, u"9"},
        {u"XIF(1)(F=1)(F=0)", false, u"9"}, {u"IF(1)(F=1)", false, u"9"}, {u"IF(1/0)(F=1)(F=2)", false, u"9"},
    };
    for (const auto& e : 表) {
        重置脚本状态();
        变量(u'F') = 数值(u"9");
        EXPECT_EQ(条件判断算式(Q(e.句)), e.成) << 文(Q(e.句));
        EXPECT_EQ(变量文本(u'F'), Q(e.F)) << 文(Q(e.句));
        EXPECT_EQ(变量文本(u'G'), u"0"_qs) << 文(Q(e.句));
        if (e.成) { EXPECT_EQ(公共.错误数, 0) << 文(Q(e.句)); }
        else { EXPECT_EQ(公共.错误提示, Q(u"计算条件判断算式时----出现错误了！")); }
    }
    重置脚本状态();   // the runner upper-cases "if" and finds it anywhere
    EXPECT_EQ(运行算式(u"x=3;if(x-2)(k=10)(k=20);k"_qs), u"10"_qs);
}

// ---------------------------------------------------- whole formulas

TEST_F(运行, FormulasOfTheAtlas) {
    const QString 海伦 = Q(u"S=(A+B+C)/2;\u2192面积=(S*(S-A)*(S-B)*(S-C))^0.5;\u2192周长=A+B+C");
    变量(u'A') = 数值(u"5"); 变量(u'B') = 数值(u"6"); 变量(u'C') = 数值(u"7");
    EXPECT_EQ(运行算式(海伦), Q(u"面积 = ") + QString::number(std::sqrt(216.0), 'f', 8) + Q(u"; 周长 = 18"));
    // A list of measured lengths: the sum of decimals is exact.
    重置脚本状态();
    置数组(公共.数组U, {u"12.345"_qs, u"23.456"_qs, u"34.567"_qs, u"45.678"_qs, u"19.07"_qs});
    变量(u'N') = 数值(u"5");
    const QString 出 = 运行算式(Q(u"L=\u03A3(1)(N)(U);M=L/N;Q=\u03A3(1)(N)((U-M)^2);"
                                    u"\u2192总长=L;\u2192平均=M;\u2192中误差=(Q/(N-1))^0.5"));
    EXPECT_TRUE(出.startsWith(Q(u"总长 = 135.116; 平均 = 27.0232; 中误差 = "))) << 文(出);
    double 方 = 0;
    for (double v : {12.345, 23.456, 34.567, 45.678, 19.07}) 方 += (v - 27.0232) * (v - 27.0232);
    EXPECT_NEAR(出.section(u" = "_qs, -1).toDouble(), std::sqrt(方 / 4), 6e-9);
    EXPECT_EQ(公共.错误数, 0) << 文(公共.错误记录);
}
