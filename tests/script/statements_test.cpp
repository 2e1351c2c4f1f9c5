// The runner and the six statement kinds other than the integral: what
// each stores, what each adds to the output, and how failures pile up.
#include "script_fixture.h"

#include "numeric/guarded.h"

namespace {

QString Q(const char16_t* s) { return QString::fromUtf16(s); }

// Fills an array as the atlas screen does from a list box.
void 置数组(数组变量& a, const QStringList& 项) {
    a.个数 = static_cast<std::int32_t>(项.size());
    a.列表文本 = 项.join(u',') + u',';
    a.元素 = QStringList{QString()} + 项;
}

}  // namespace

using 运行 = 脚本测试;
using 赋值与输出 = 脚本测试;
using 累计 = 脚本测试;
using 数组 = 脚本测试;
using 条件 = 脚本测试;

// ------------------------------------------------------------------ runner

TEST_F(运行, OutputsJoinedAndVariablesCarried) {
    struct 例 { const char16_t* 脚本; const char16_t* 输出; };
    const 例 表[] = {
        {u"", u"0"},
        {u"   ", u"0"},
        {u"X+1", u"3"},                      // X is 2 below
        {u"F=1;G=F+1;G", u"2"},
        {u"A=1;B=2", u""},                   // assignments only: no output
        {u"A=1;;B=2", u"0"},                 // the empty statement evaluates to 0
        {u"1;2;3", u"1; 2; 3"},
        {u"1;2;3;", u"1; 2; 3"},             // the closing ";" adds nothing
        {u"f=2;f*3", u"6"},                  // upper-cased first
        {u"F = 1 + 2 ; F", u"3"},            // blanks removed first
        {u"\u2192\u9762\u79EF=3*4;\u2192\u5468\u957F=2*(3+4)", u"\u9762\u79EF = 12; \u5468\u957F = 14"},
        {u"X;\u2192=5", u"2; 5"},            // a blank label gives the value alone
    };
    for (const auto& e : 表) {
        重置脚本状态();
        变量(u'X') = 数值(u"2");
        EXPECT_EQ(运行算式(Q(e.脚本)), Q(e.输出)) << Q(e.脚本).toStdString();
        EXPECT_EQ(公共.错误数, 0) << Q(e.脚本).toStdString() << " " << 公共.错误记录.toStdString();
        if (!txt::trim(Q(e.脚本)).isEmpty()) {
            EXPECT_EQ(公共.脚本输出, Q(e.输出));  // the runner leaves its output in the state
        }
    }
}

TEST_F(运行, VariablesPersistAcrossRuns) {
    运行算式(u"K=41"_qs);
    EXPECT_EQ(运行算式(u"K+1"_qs), u"42"_qs);
}

TEST_F(运行, FailureInTheMiddleVoidsTheRest) {
    变量(u'G') = 数值(u"7");
    const QString 出 = 运行算式(QString::fromUtf16(u"F=1;H=1/0;G=5;G;\u2192K=1;F"));
    EXPECT_GE(公共.错误数, 1);
    EXPECT_FALSE(公共.首个错误.isEmpty());
    EXPECT_TRUE(公共.错误记录.startsWith(公共.首个错误));
    EXPECT_EQ(变量文本(u'F'), u"1"_qs);   // before the failure: stored
    EXPECT_EQ(变量文本(u'G'), u"7"_qs);   // after it: nothing stored
    // Plain outputs add the marker "1", arrow outputs their failure literal.
    EXPECT_EQ(出, QString::fromUtf16(u"1; 计算常规输出算式时---出错了！; 1"));
}

TEST_F(运行, RunnerDoesNotResetTheCollector) {
    报告错误(u"earlier"_qs);
    EXPECT_EQ(运行算式(u"F=5;F"_qs), u"1"_qs);
    EXPECT_EQ(公共.首个错误, u"earlier"_qs);
    EXPECT_EQ(变量文本(u'F'), u"0"_qs);
}

// -------------------------------------------------- assignment and arrow

TEST_F(赋值与输出, AssignmentTargets) {
    struct 例 { const char16_t* 句; char16_t 名; const char16_t* 值; };
    const 例 表[] = {
        {u"F=2+3", u'F', u"5"},
        {u"O=5", u'F', u"5"},        // O is no variable
        {u"AB=1", u'A', u"1"},
        {u"2A=3", u'F', u"3"},       // no leading letters
        {u"=4", u'F', u"4"},
        {u"Z=1/4;", u'Z', u"0.25"},  // one closing ";" is dropped
        {u"Y=", u'Y', u"0"},         // an empty right side evaluates to 0
    };
    for (const auto& e : 表) {
        重置脚本状态();
        EXPECT_TRUE(赋值算式(Q(e.句))) << Q(e.句).toStdString();
        EXPECT_EQ(变量文本(e.名), Q(e.值)) << Q(e.句).toStdString();
    }
}

TEST_F(赋值与输出, AssignmentWithoutEqualsOrAfterErrorStoresNothing) {
    EXPECT_FALSE(赋值算式(u"F"_qs));
    EXPECT_EQ(公共.错误数, 0);
    报告错误(u"x"_qs);
    EXPECT_FALSE(赋值算式(u"F=9"_qs));
    EXPECT_EQ(变量文本(u'F'), u"0"_qs);
}

TEST_F(赋值与输出, ArrowRoundsToOutputDecimals) {
    struct 例 { int 位; const char16_t* 句; const char16_t* 出; };
    const 例 表[] = {
        {2, u"\u2192A=2/3", u"A = 0.67"},
        {2, u"\u2192A=-2/3", u"A = -0.67"},
        {2, u"\u2192A=1.005", u"A = 1.01"},    // half away from zero on the digits
        {0, u"\u2192N=2.5", u"N = 3"},
        {8, u"\u2192\u5BBD=1/8", u"\u5BBD = 0.125"},
        {3, u"\u2192=7", u"7"},
        {3, u"\u2192 =7;", u"7"},              // blank label, closing ";"
    };
    for (const auto& e : 表) {
        重置脚本状态();
        公共.输出小数位数 = e.位;
        EXPECT_EQ(常规输出算式(Q(e.句)), Q(e.出)) << Q(e.句).toStdString();
        EXPECT_EQ(公共.错误数, 0);
    }
}

TEST_F(赋值与输出, ArrowValueIsNotStored) {
    运行算式(QString::fromUtf16(u"\u2192F=12"));
    EXPECT_EQ(变量文本(u'F'), u"0"_qs);
}

TEST_F(赋值与输出, ArrowFailures) {
    const QString 失败 = QString::fromUtf16(u"计算常规输出算式时---出错了！");
    // Not an arrow: the literal, and no error of its own.
    EXPECT_EQ(常规输出算式(u"F=1"_qs), 失败);
    EXPECT_EQ(公共.错误数, 0);
    // No "=": the arrow itself goes to the evaluator, which refuses it.
    EXPECT_EQ(常规输出算式(QString::fromUtf16(u"\u21925")), 失败);
    EXPECT_GE(公共.错误数, 1);
    重置脚本状态();
    EXPECT_EQ(常规输出算式(QString::fromUtf16(u"\u2192A=1/0")), 失败);
    EXPECT_GE(公共.错误数, 1);
}

// ------------------------------------------------------------- summation

TEST_F(累计, SumsOverTheArrays) {
    struct 例 { const char16_t* 句; char16_t 名; const char16_t* 值; };
    const 例 表[] = {
        {u"F=\u03A3(1)(3)(U)", u'F', u"9"},
        {u"F=\u03A3(5)(1)(U)", u'F', u"9"},          // bounds swapped; U(4), U(5) read 0
        {u"F=\u03A3(1)(5)(U)", u'F', u"9"},
        {u"F=\u03A3(0)(0)(U)", u'F', u"1"},          // one round, i = 1
        {u"F=\u03A3(-3)(2)(U)", u'F', u"4"},         // raised to 1..2
        {u"F=\u03A3(1)(3)(U*V)", u'F', u"2"},        // V shorter: reads 0 from there on
        {u"F=\u03A3(2)(3)(U+W)", u'F', u"28"},       // 3+10 + 5+10
        {u"F=\u03A3(1)(4)(2)", u'F', u"8"},          // a plain repeated sum
        {u"F=\u03A3(1)(2.5)(1)", u'F', u"2"},        // bound rounded half to even
        {u"F=\u03A3(1)(3.5)(1)", u'F', u"4"},
        {u"G=\u03A3(1)(3)(U);", u'G', u"9"},
        {u"OO=\u03A3(1)(3)(U)", u'F', u"9"},
        {u"F=\u03A3(1)(3)(U/10)", u'F', u"0.9"},     // exact decimal sum
        {u"F=\u03A3(1)(3)(U*U)", u'F', u"35"},
    };
    for (const auto& e : 表) {
        重置脚本状态();
        置数组(公共.数组U, {u"1"_qs, u"3"_qs, u"5"_qs});
        置数组(公共.数组V, {u"2"_qs});
        置数组(公共.数组W, {u"10"_qs, u"10"_qs, u"10"_qs});
        EXPECT_TRUE(累计赋值算式(Q(e.句))) << Q(e.句).toStdString() << " " << 公共.错误记录.toStdString();
        EXPECT_EQ(变量文本(e.名), Q(e.值)) << Q(e.句).toStdString();
    }
}

TEST_F(累计, LetterVariablesPutBackAfterSuccess) {
    置数组(公共.数组U, {u"1"_qs, u"2"_qs});
    变量(u'U') = 数值(u"7");
    变量(u'V') = 数值(u"8");
    变量(u'W') = 数值(u"9");
    ASSERT_TRUE(累计赋值算式(QString::fromUtf16(u"F=\u03A3(1)(2)(U)")));
    EXPECT_EQ(变量文本(u'F'), u"3"_qs);
    EXPECT_EQ(变量文本(u'U'), u"7"_qs);
    EXPECT_EQ(变量文本(u'V'), u"8"_qs);
    EXPECT_EQ(变量文本(u'W'), u"9"_qs);
}

TEST_F(累计, FailureInTheLoopLeavesThatRoundsElements) {
    置数组(公共.数组U, {u"1"_qs, u"3"_qs, u"5"_qs});
    变量(u'U') = 数值(u"7");
    变量(u'F') = 数值(u"42");
    EXPECT_FALSE(累计赋值算式(QString::fromUtf16(u"F=\u03A3(1)(3)(1/(U-3))")));
    EXPECT_EQ(变量文本(u'U'), u"3"_qs);   // the round that failed
    EXPECT_EQ(变量文本(u'F'), u"42"_qs);  // nothing stored
    EXPECT_GE(公共.错误数, 2);             // the evaluator's message, then the literal
    EXPECT_TRUE(公共.错误记录.endsWith(QString::fromUtf16(u"计算累计赋值算式时----出现错误了！\r\n")));
    EXPECT_NE(公共.首个错误, QString::fromUtf16(u"计算累计赋值算式时----出现错误了！"));
}

TEST_F(累计, MalformedStatementsFailWithTheLiteral) {
    const char16_t* 表[] = {
        u"F=\u03A3(1)(3)(U)X",          // text behind group 3
        u"F=\u03A3(1)(3)(U)(4)",        // a fourth group
        u"F=\u03A3(1)(3)",              // group 3 missing
        u"F=\u03A3(1)(3)(U",            // unclosed
        u"=\u03A3(1)(3)(U)",            // "=" at position 1
        u"\u03A3(1)(3)(U)=F",           // Σ ahead of position 3
        u"F\u03A3=(1)(3)(U)",           // Σ at 2
        u"F=\u03A3(1/0)(3)(U)",         // a bound that fails
        u"F=\u03A3(1)(1E+12)(1)",       // a bound outside 32 bits: fails at once
        u"F=\u03A3(1)(2E+9)(1/0)",      // huge range, failing expression: stops at round 1
    };
    for (const char16_t* s : 表) {
        重置脚本状态();
        置数组(公共.数组U, {u"1"_qs, u"3"_qs, u"5"_qs});
        变量(u'F') = 数值(u"42");
        EXPECT_FALSE(累计赋值算式(Q(s))) << Q(s).toStdString();
        EXPECT_GE(公共.错误数, 1);
        EXPECT_EQ(公共.错误提示, QString::fromUtf16(u"计算累计赋值算式时----出现错误了！")) << Q(s).toStdString();
        EXPECT_EQ(变量文本(u'F'), u"42"_qs);
    }
}

// ---------------------------------------------------------------- arrays

TEST_F(数组, FillsTheNamedArray) {
    struct 例 { const char16_t* 句; char16_t 名; int 个数; const char16_t* 列表; QStringList 元素; };
    const 例 表[] = {
        {u"U=(1,3,5)", u'U', 3, u"1,3,5,", {u"1"_qs, u"3"_qs, u"5"_qs}},
        {u"U = (1,3,5,)", u'U', 3, u"1,3,5,", {u"1"_qs, u"3"_qs, u"5"_qs}},
        {u"V=(7,)", u'V', 1, u"7,", {u"7"_qs}},
        {u"Q=(1,2)", u'W', 2, u"1,2,", {u"1"_qs, u"2"_qs}},
        {u"WW=(4,4)", u'W', 2, u"4,4,", {u"4"_qs, u"4"_qs}},
        {u"U=1,2,3", u'U', 3, u"1,2,3,", {u"1"_qs, u"2"_qs, u"3"_qs}},
        {u"U=(1.50,007,-2)", u'U', 3, u"1.50,007,-2,", {u"1.5"_qs, u"7"_qs, u"-2"_qs}},
        {u"U=(1,,3)", u'U', 3, u"1,,3,", {u"1"_qs, u"0"_qs, u"3"_qs}},
        {u"V=(1,2)(3)", u'V', 2, u"1,2,", {u"1"_qs, u"2"_qs}},   // only the first bracket pair
    };
    for (const auto& e : 表) {
        重置脚本状态();
        QString s = Q(e.句);
        s.remove(u' ');
        EXPECT_TRUE(数组赋值算式(s)) << s.toStdString();
        const 数组变量& a = e.名 == u'U' ? 公共.数组U : e.名 == u'V' ? 公共.数组V : 公共.数组W;
        EXPECT_EQ(a.个数, e.个数) << s.toStdString();
        EXPECT_EQ(a.列表文本, Q(e.列表)) << s.toStdString();
        EXPECT_EQ(a.元素, QStringList{QString()} + e.元素) << s.toStdString();
        EXPECT_EQ(公共.错误数, 0);
    }
}

TEST_F(数组, ItemsAreConvertedNotEvaluated) {
    变量(u'X') = 数值(u"9");
    EXPECT_TRUE(数组赋值算式(u"U=(X,2)"_qs));
    EXPECT_EQ(公共.数组U.元素.value(1), u"1"_qs);   // the conversion's failure marker
    EXPECT_EQ(公共.错误数, 1);
}

TEST_F(数组, CommaInsideAFunctionMakesAnArrayStatement) {
    变量(u'F') = 数值(u"3");
    运行算式(u"F=SIN(X),1"_qs);
    EXPECT_EQ(变量文本(u'F'), u"3"_qs);   // no assignment took place
    EXPECT_EQ(公共.数组W.个数, 1);        // the list inside the first bracket: "X"
}

TEST_F(数组, FailuresKeepTheFormerContent) {
    const char16_t* 表[] = {u"U,=1", u"U=(),", u"=U(1,2)", u"U=,5", u"UV"};
    for (const char16_t* s : 表) {
        重置脚本状态();
        置数组(公共.数组U, {u"8"_qs, u"9"_qs});
        EXPECT_FALSE(数组赋值算式(Q(s))) << Q(s).toStdString();
        EXPECT_EQ(公共.错误提示, QString::fromUtf16(u"计算数组赋值算式时----出现错误了！"));
        EXPECT_EQ(公共.数组U.个数, 2);
        EXPECT_EQ(公共.数组U.元素.value(2), u"9"_qs);
    }
}

// ----------------------------------------------------------- conditional

TEST_F(条件, BranchesByTheSignOfTheCondition) {
    struct 例 { const char16_t* 句; bool 成; const char16_t* F; const char16_t* G; };
    const 例 表[] = {
        {u"IF(1)(F=1)(F=2)", true, u"1", u"5"},
        {u"IF(0)(F=1)(F=2)", true, u"2", u"5"},
        {u"IF(-1)(F=1)(F=2)", true, u"2", u"5"},
        {u"IF(0.0000000000000000000000000001)(F=1)(F=2)", true, u"1", u"5"},
        {u"IF(G-5)(F=1)(F=2)", true, u"2", u"5"},       // 0 is not positive
        {u"IF(G-4)(F=1)(F=2)", true, u"1", u"5"},
        {u"IF(0)(F=1)()", true, u"9", u"5"},            // short else: no else
        {u"IF(0)(F=1)(G)", true, u"9", u"5"},
        {u"IF(1)(F+1)(G=1)", true, u"9", u"5"},         // a branch without "=" is skipped
        {u"IF(1)(AB=3)(G=1)", true, u"9", u"5"},        // stores into A
        {u"IF(1)(O=3)(G=1)", true, u"3", u"5"},         // O goes to F
        {u"IF(1)(F=1)(F=0);", true, u"1", u"5"},
        {u"IF(1)()(F=0)", false, u"9", u"5"},           // short then: an error
        {u"IF(1)(F)(G=1)", false, u"9", u"5"},
        {u"IF(1)(F=1)(F=0)X", false, u"9", u"5"},
        {u"IF(1)(F=1)(F=0)(G=2)", false, u"9", u"5"},
        {u"XIF(1)(F=1)(F=0)", false, u"9", u"5"},
        {u"IF(1)(F=1)", false, u"9", u"5"},
        {u"IF(1/0)(F=1)(F=2)", false, u"9", u"5"},
    };
    for (const auto& e : 表) {
        重置脚本状态();
        变量(u'F') = 数值(u"9");
        变量(u'G') = 数值(u"5");
        EXPECT_EQ(条件判断算式(Q(e.句)), e.成) << Q(e.句).toStdString();
        EXPECT_EQ(变量文本(u'F'), Q(e.F)) << Q(e.句).toStdString();
        EXPECT_EQ(变量文本(u'G'), Q(e.G)) << Q(e.句).toStdString();
        if (e.成) {
            EXPECT_EQ(公共.错误数, 0) << Q(e.句).toStdString();
        } else {
            EXPECT_EQ(公共.错误提示, QString::fromUtf16(u"计算条件判断算式时----出现错误了！"));
        }
    }
    重置脚本状态();
    EXPECT_TRUE(条件判断算式(u"IF(1)(AB=3)(G=1)"_qs));
    EXPECT_EQ(变量文本(u'A'), u"3"_qs);
}

TEST_F(条件, RunnerRecognisesIfAnywhere) {
    // Lower case "if" becomes IF in the runner.
    EXPECT_EQ(运行算式(u"x=3;if(x-2)(k=10)(k=20);k"_qs), u"10"_qs);
    EXPECT_EQ(公共.错误数, 0);
}
