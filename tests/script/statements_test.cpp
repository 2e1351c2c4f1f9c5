// The runner and the six statement kinds other than the integral: what each
// stores, what each adds to the output, how failures pile up; whole
// formulas of the kind the atlas holds; and hostile scripts.
#include "script_fixture.h"

#include <QElapsedTimer>
#include <cmath>
#include <random>

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
        EXPECT_EQ(计算状态.错误数, 0) << 文(Q(e.脚本)) << " " << 文(计算状态.错误记录);
        if (*e.脚本) { EXPECT_EQ(脚本状态.脚本输出, Q(e.输出)); }   // the runner leaves its output in the state
    }
    运行算式(Q(u"K=41;\u2192F=12"));
    EXPECT_EQ(运行算式(u"K+1"_qs), u"42"_qs);   // variables persist across runs
    EXPECT_EQ(变量文本(u'F'), u"0"_qs);         // an arrow's value is not stored
}

TEST_F(运行, FailureInTheMiddleVoidsTheRest) {
    变量(u'G') = 数值(u"7");
    const QString 出 = 运行算式(Q(u"F=1;H=1/0;G=5;G;\u2192K=1;F"));
    EXPECT_TRUE(计算状态.错误记录.startsWith(计算状态.首个错误));
    EXPECT_EQ(变量文本(u'F'), u"1"_qs);   // before the failure: stored
    EXPECT_EQ(变量文本(u'G'), u"7"_qs);   // after it: nothing stored
    // Plain outputs add the marker "1", arrow outputs their failure literal.
    EXPECT_EQ(出, u"1; "_qs + k输出失败 + u"; 1"_qs);
    // The runner does not reset the collector itself.
    重置脚本状态();
    报告错误(u"earlier"_qs);
    EXPECT_EQ(运行算式(u"F=5;F"_qs), u"1"_qs);
    EXPECT_EQ(计算状态.首个错误, u"earlier"_qs);
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
    EXPECT_EQ(计算状态.错误数, 0);
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
        计算状态.输出小数位数 = e.位;
        EXPECT_EQ(常规输出算式(Q(e.句)), Q(e.出)) << 文(Q(e.句));
    }
    EXPECT_EQ(计算状态.错误数, 0);
    // Not an arrow: the literal, and no error of its own.
    EXPECT_EQ(常规输出算式(u"F=1"_qs), k输出失败);
    EXPECT_EQ(计算状态.错误数, 0);
    // No "=": the arrow itself goes to the evaluator, which refuses it.
    EXPECT_EQ(常规输出算式(Q(u"\u21925")), k输出失败);
    EXPECT_GE(计算状态.错误数, 1);
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
        置数组(脚本状态.数组U, {u"1"_qs, u"3"_qs, u"5"_qs});
        置数组(脚本状态.数组V, {u"2"_qs});
        置数组(脚本状态.数组W, {u"10"_qs, u"10"_qs, u"10"_qs});
        变量(u'U') = 数值(u"7");
        EXPECT_TRUE(累计赋值算式(Q(e.句))) << 文(Q(e.句)) << " " << 文(计算状态.错误记录);
        EXPECT_EQ(变量文本(e.名), Q(e.值)) << 文(Q(e.句));
        EXPECT_EQ(变量文本(u'U'), u"7"_qs);   // the loop letters are put back
    }
}

TEST_F(累计, FailureInTheLoopLeavesThatRoundsElements) {
    置数组(脚本状态.数组U, {u"1"_qs, u"3"_qs, u"5"_qs});
    变量(u'U') = 数值(u"7");
    变量(u'F') = 数值(u"42");
    EXPECT_FALSE(累计赋值算式(Q(u"F=\u03A3(1)(3)(1/(U-3))")));
    EXPECT_EQ(变量文本(u'U'), u"3"_qs);   // the round that failed
    EXPECT_EQ(变量文本(u'F'), u"42"_qs);  // nothing stored
    EXPECT_GE(计算状态.错误数, 2);             // the evaluator's message, then the literal
    EXPECT_TRUE(计算状态.错误记录.endsWith(Q(u"计算累计赋值算式时----出现错误了！\r\n")));
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
        置数组(脚本状态.数组U, {u"1"_qs, u"3"_qs, u"5"_qs});
        变量(u'F') = 数值(u"42");
        EXPECT_FALSE(累计赋值算式(Q(s))) << 文(Q(s));
        EXPECT_EQ(计算状态.错误提示, Q(u"计算累计赋值算式时----出现错误了！")) << 文(Q(s));
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
        const 数组变量& a = e.名 == u'U' ? 脚本状态.数组U : e.名 == u'V' ? 脚本状态.数组V : 脚本状态.数组W;
        EXPECT_EQ(a.个数, e.元素.size()) << 文(Q(e.句));
        EXPECT_EQ(a.列表文本, Q(e.列表)) << 文(Q(e.句));
        EXPECT_EQ(a.元素, QStringList{QString()} + e.元素) << 文(Q(e.句));
        EXPECT_EQ(计算状态.错误数, 0);
    }
    // Items are converted, not evaluated: X fails as a number.
    EXPECT_TRUE(数组赋值算式(u"U=(X,2)"_qs));
    EXPECT_EQ(脚本状态.数组U.元素.value(1), u"1"_qs);
    EXPECT_EQ(计算状态.错误数, 1);
}

TEST_F(数组, FailuresKeepTheFormerContent) {
    for (const char16_t* s : {u"U,=1", u"U=(),", u"=U(1,2)", u"U=,5", u"UV"}) {
        重置脚本状态();
        置数组(脚本状态.数组U, {u"8"_qs, u"9"_qs});
        EXPECT_FALSE(数组赋值算式(Q(s))) << 文(Q(s));
        EXPECT_EQ(计算状态.错误提示, Q(u"计算数组赋值算式时----出现错误了！"));
        EXPECT_EQ(脚本状态.数组U.元素.value(2), u"9"_qs);
    }
    // A comma inside a function call makes an array statement of the whole.
    重置脚本状态();
    变量(u'F') = 数值(u"3");
    运行算式(u"F=SIN(X),1"_qs);
    EXPECT_EQ(变量文本(u'F'), u"3"_qs);   // no assignment took place
    EXPECT_EQ(脚本状态.数组W.个数, 1);        // the list inside the first bracket: "X"
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
        if (e.成) { EXPECT_EQ(计算状态.错误数, 0) << 文(Q(e.句)); }
        else { EXPECT_EQ(计算状态.错误提示, Q(u"计算条件判断算式时----出现错误了！")); }
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
    置数组(脚本状态.数组U, {u"12.345"_qs, u"23.456"_qs, u"34.567"_qs, u"45.678"_qs, u"19.07"_qs});
    变量(u'N') = 数值(u"5");
    const QString 出 = 运行算式(Q(u"L=\u03A3(1)(N)(U);M=L/N;Q=\u03A3(1)(N)((U-M)^2);"
                                    u"\u2192总长=L;\u2192平均=M;\u2192中误差=(Q/(N-1))^0.5"));
    EXPECT_TRUE(出.startsWith(Q(u"总长 = 135.116; 平均 = 27.0232; 中误差 = "))) << 文(出);
    double 方 = 0;
    for (double v : {12.345, 23.456, 34.567, 45.678, 19.07}) 方 += (v - 27.0232) * (v - 27.0232);
    EXPECT_NEAR(出.section(u" = "_qs, -1).toDouble(), std::sqrt(方 / 4), 6e-9);
    EXPECT_EQ(计算状态.错误数, 0) << 文(计算状态.错误记录);
}

// ===========================================================================
// Hostile scripts: random statements of every shape with garbage mixed in,
// unbalanced brackets, missing groups, long scripts and huge counts. The
// runner and the canonicaliser must always come back, in bounded time,
// with failures in the collector and the collector consistent.

namespace {

class 生成器 {
public:
    explicit 生成器(unsigned 种子) : r_(种子) {}

    int 取(int n) { return std::uniform_int_distribution<int>(0, n - 1)(r_); }

    QString 数() {
        static const char16_t* 表[] = {u"0", u"1", u"2.5", u"-3", u"1E+30", u"0.0001", u"7", u"1E-20", u"99"};
        return Q(表[取(9)]);
    }
    QString 字母() { return QString(QChar(u"ABCDEFGHIJKLMNOPQRSTUVWXYZ"[取(26)])); }
    QString 式(int 深 = 0) {
        switch (深 > 2 ? 取(2) : 取(7)) {
        case 0: return 数();
        case 1: return 字母();
        case 2: return 式(深 + 1) + QChar(u"+-*/^\\"[取(6)]) + 式(深 + 1);
        case 3: return u'(' + 式(深 + 1) + u')';
        case 4: return Q(表函数[取(5)]) + u'(' + 式(深 + 1) + u')';
        case 5: return 式(深 + 1) + QChar(u"!%"[取(2)]);
        default: return u'-' + 式(深 + 1);
        }
    }
    // One statement of a random shape; small bounds keep loops short.
    QString 语句() {
        const QString 小 = QString::number(取(9));
        switch (取(8)) {
        case 0: return 字母() + u'=' + 式();
        case 1: return QChar(0x2192) + 字母() + u'=' + 式();
        case 2: return 式();
        case 3: return QChar(u"UVWQ"[取(4)]) + Q(u"=(") + 数() + u',' + 数() + u',' + 数() + u')';
        case 4: return 字母() + Q(u"=\u03A3(") + 小 + Q(u")(") + QString::number(取(9)) + Q(u")(") + 式() + u')';
        case 5: return 字母() + Q(u"=\u222B(") + 小 + Q(u")(") + 数() + Q(u")(") + 式() + Q(u")(")
                       + QString::number(1 + 取(40)) + u')';
        case 6: return Q(u"IF(") + 式() + Q(u")(") + 字母() + u'=' + 式() + Q(u")(") + 字母() + u'=' + 式() + u')';
        default: {  // pure garbage from the marks and operators, no digits
            QString g;
            const int n = 1 + 取(12);
            for (int i = 0; i < n; ++i) g += 垃圾字符();
            return g;
        }
        }
    }
    QChar 垃圾字符() {
        static const QString 表 = Q(u"()(),;=\u03A3\u222B\u2192IF^*/\\!%\u2030.E-+O \u3000\u9762");
        return 表.at(取(static_cast<int>(表.size())));
    }
    // Deletes, inserts or swaps a few characters.
    QString 变异(QString s) {
        const int n = 取(4);
        for (int k = 0; k < n && !s.isEmpty(); ++k) {
            const int i = 取(static_cast<int>(s.size()));
            switch (取(3)) {
            case 0: s.remove(i, 1); break;
            case 1: s.insert(i, 垃圾字符()); break;
            default:
                if (i + 1 < s.size()) std::swap(s[i], s[i + 1]);
            }
        }
        return s;
    }

private:
    static constexpr const char16_t* 表函数[] = {u"SIN", u"LN", u"ATAN", u"COS", u"ABS"};
    std::mt19937 r_;
};

void 检查收集器(const QString& 脚本) {
    ASSERT_GE(计算状态.错误数, 0);
    EXPECT_EQ(计算状态.错误数 == 0, 计算状态.首个错误.isEmpty()) << 文(脚本);
    if (计算状态.错误数 > 0) {
        EXPECT_TRUE(计算状态.错误记录.contains(计算状态.首个错误)) << 文(脚本);
    }
}

}  // namespace

using 健壮 = 脚本测试;

TEST_F(健壮, RandomScriptsWithGarbageAlwaysComeBack) {
    生成器 g(20261123u);
    QElapsedTimer 钟;
    钟.start();
    int 有错 = 0;
    for (int k = 0; k < 500; ++k) {
        重置脚本状态();
        QStringList 句;
        const int n = 1 + g.取(6);
        for (int i = 0; i < n; ++i) 句 << (g.取(3) == 0 ? g.变异(g.语句()) : g.语句());
        const QString 脚本 = 句.join(u';');
        const QString 出 = 运行算式(脚本);
        检查收集器(脚本);
        if (计算状态.错误数 > 0) ++有错;
        const QString 规 = 规整算式(脚本);
        EXPECT_FALSE(规.isEmpty());
        EXPECT_TRUE(规 == u"0"_qs || 规.endsWith(u";  "_qs)) << 文(规);
        清除计算状态();
        运行算式(规);  // the saved form must come back too
        检查收集器(规);
    }
    EXPECT_GT(有错, 60);  // garbage really did reach the collector
    EXPECT_LT(钟.elapsed(), 60000);
}

TEST_F(健壮, UnbalancedAndMissingGroupsAreCollected) {
    for (const char16_t* s : {u"F=(1+2", u"F=1+2)", u")(", u"IF((1)(F=1)(F=2)", u"IF)1((F=1)(F=2)",
                              u"F=\u03A3)1()2()U(", u"U=((1,2)", u"\u2192A=((",
                              u"\u222B(0)(1)(X)(1)(2);F=\u222B(1/0)(1)(X)"}) {
        重置脚本状态();
        运行算式(Q(s));
        EXPECT_GT(计算状态.错误数, 0) << 文(Q(s));
        检查收集器(Q(s));
    }
}

TEST_F(健壮, ThousandStatements) {
    QString 脚本 = u"A=0"_qs;
    for (int i = 0; i < 1000; ++i) 脚本 += u";A=A+1"_qs;
    脚本 += u";A"_qs;
    QElapsedTimer 钟;
    钟.start();
    EXPECT_EQ(运行算式(脚本), u"1000"_qs);
    EXPECT_EQ(计算状态.错误数, 0);
    EXPECT_LT(钟.elapsed(), 5000);

    // One bad statement in the middle: everything behind it is void.
    重置脚本状态();
    QString 坏 = u"A=0"_qs;
    for (int i = 0; i < 1000; ++i) 坏 += i == 500 ? u";A=A+(1"_qs : u";A=A+1"_qs;
    坏 += u";\u2192R=A;A"_qs;
    const QString 出 = 运行算式(坏);
    EXPECT_EQ(变量文本(u'A'), u"500"_qs);
    EXPECT_EQ(出, Q(u"计算常规输出算式时---出错了！; 1"));
    EXPECT_GE(计算状态.错误数, 1);
    // Canonicalising a long script is linear too.
    EXPECT_TRUE(规整算式(脚本).startsWith(u"A = 0;  A = A + 1;  "_qs));
}

TEST_F(健壮, HugeCountsAreClampedOrFailFast) {
    QElapsedTimer 钟;
    钟.start();
    // The strip count is capped at 100000.
    ASSERT_TRUE(积分赋值算式(Q(u"F=\u222B(0)(1)(1)(1E+9)")));
    EXPECT_NEAR(变量(u'F').双精度值(), 1.0, 1e-9);
    EXPECT_EQ(定积分计算(Q(u"\u222B(0)(1)(X)(1E+300)")), 0.0);
    EXPECT_FALSE(脚本状态.积分错误.isEmpty());
    EXPECT_LT(钟.elapsed(), 20000);
}

TEST_F(健壮, LongAndOddTextsInThePureHelpers) {
    const QString 深 = QString(5000, u'(') + u'1' + QString(5000, u')');
    EXPECT_TRUE(分析括号组(深 + u"(2)(3)"_qs, 1));
    EXPECT_EQ(脚本状态.括号组位置[5], 深.size() + 6);
    // Surrogate pairs and NULs are just characters.
    const QString 怪 = u"F="_qs + Q(u"\U0001F600") + QChar(0) + u"(1)(2)(3)"_qs;
    分析括号组(怪, 1);
    EXPECT_FALSE(规整算式(怪).isEmpty());
}
