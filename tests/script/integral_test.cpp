// The definite integral: values against midpoint sums computed here
// independently, the strip-count rules, every failure text, what happens to
// X, and the time prompt answered both ways (through a fake clock, so that
// the prompt comes after 100 quick rounds).
#include "script_fixture.h"

#include <cmath>

namespace {

// The midpoint rule as the statement defines it, written out plainly.
double 中点和(double a, double dx, int n, double (*f)(double)) {
    long double s = 0;
    for (int i = 1; i <= n; ++i) s += static_cast<long double>(f(a + (i - 0.5) * dx)) * dx;
    return static_cast<double>(s);
}

double 平方(double x) { return x * x; }

// A fake clock: the first reading is 0, each later one `步长` seconds more.
double 假时钟步长 = 6000.0;
int 假时钟读数 = 0;
double 假时钟() { return 假时钟步长 * 假时钟读数++; }

struct 假时钟作用域 {
    explicit 假时钟作用域(double 步长) {
        假时钟步长 = 步长;
        假时钟读数 = 0;
        旧 = 安装积分时钟(&假时钟);
    }
    ~假时钟作用域() { 安装积分时钟(旧); }
    秒钟源 旧;
};

double 读双(const 数值& v) {
    double d = 0;
    文本转双精度(v.文本(), d);
    return d;
}

}  // namespace

using 积分 = 脚本测试;

TEST_F(积分, ValuesAgainstIndependentMidpointSums) {
    const struct { const char16_t* 句; double 期望; } 表[] = {
        {u"F=\u222B(0)(2)(X)(100)", 2.0},
        {u"F=\u222B(2)(0)(X)(100)", 2.0},                            // swapped, same sign
        {u"F=\u222B(1)(1)(X)(100)", 0.0}, {u"F=\u222B(0)(1)(X^2)(10)", 中点和(0, 0.1, 10, 平方)},
        {u"F=\u222B(0)(1)(X^2)", 中点和(0, 0.001, 1000, 平方)},       // default 1000
        {u"F=\u222B(0)(1)(X^2)(0)", 中点和(0, 0.01, 100, 平方)},      // below 1: 100
        {u"F=\u222B(0)(1)(X^2)(2.5)", 中点和(0, 0.5, 2, 平方)},       // half to even
        {u"F=\u222B(0)(1)(X^2)(3.5)", 中点和(0, 0.25, 4, 平方)},
        {u"F=\u222B(0)(1)(X^2)(3)", 中点和(0, 0.333333333333, 3, 平方)},   // dx to 12 places, strips recounted
    };
    for (const auto& e : 表) {
        重置脚本状态();
        ASSERT_TRUE(积分赋值算式(Q(e.句))) << 文(Q(e.句)) << 文(计算状态.错误记录);
        EXPECT_TRUE(变量(u'F').是双精度()) << 文(Q(e.句));
        EXPECT_NEAR(读双(变量(u'F')), e.期望, 1e-12) << 文(Q(e.句));
        EXPECT_EQ(计算状态.错误数, 0);
    }
}

TEST_F(积分, SuccessRestoresXKeepsOtherLettersAndLowersThePrecision) {
    变量(u'X') = 数值(u"7");
    变量(u'K') = 数值(u"3");
    ASSERT_TRUE(积分赋值算式(Q(u"H=\u222B(0)(1)(K*X)(10)")));
    EXPECT_NEAR(读双(变量(u'H')), 1.5, 1e-13);
    EXPECT_EQ(变量文本(u'K'), u"3"_qs);
    EXPECT_EQ(变量文本(u'X'), u"7"_qs);
    EXPECT_EQ(脚本状态.积分提示, Q(u"已经成功处理完积分表达式。"));
    EXPECT_TRUE(脚本状态.积分错误.isEmpty());
    EXPECT_EQ(计算状态.可达有效位数, 15);
    EXPECT_GE(计算状态.精度损失数, 1);
}

TEST_F(积分, TermFailuresSetTheIntegralError) {
    const struct { const char16_t* 项; const char16_t* 错; } 表[] = {
        {u"(0)(1)(X)", u"没有定积分符号错误！"}, {u"F\u222B(0)(1)(X)", u"定积分符号前有字符错误！"},
        {u"\u222B(0)(1)(X)Y", u"定积分算式后有字符错误！"},
        {u"\u222B()()()", u"处理定积分表达式时，发现错误 -- 括号不符合积分配对格式！需要修改表达式！"},
        {u"\u222B(1/0)(1)(X)", u"定积分表达式---参数A计算错误！"},
        {u"\u222B(0)(1/0)(X)", u"定积分表达式---参数B计算错误！"},
        {u"\u222B(0)(1)(X)(1/0)", u"定积分表达式---参数N计算错误！"},
        {u"\u222B(0)(1E-13)(X)(1000)", u"定积分表达式---dx间隔太小错误！"},
        {u"\u222B(0)(1)(X)(1E+20)", u"处理定积分表达式时，由于数据异常，引发程序计算错误！"},
        {u"\u222B(0)(1)(1/(X-0.25))(2)", u"在循环计算积分表达式时，出现计算错误！"},
    };
    for (const auto& e : 表) {
        重置脚本状态();
        变量(u'X') = 数值(u"7");
        脚本状态.积分提示 = u"stale"_qs;
        EXPECT_EQ(定积分计算(Q(e.项)), 0.0) << 文(Q(e.项));
        EXPECT_EQ(脚本状态.积分错误, Q(e.错)) << 文(Q(e.项));
        EXPECT_TRUE(脚本状态.积分提示.isEmpty());
        EXPECT_EQ(变量文本(u'X'), u"7"_qs) << 文(Q(e.项));   // untouched or put back
    }
}

TEST_F(积分, StatementReportsTheIntegralErrorOrFailsSilently) {
    变量(u'F') = 数值(u"5");
    EXPECT_FALSE(积分赋值算式(Q(u"F=\u222B(0)(1E-13)(X)(1000)")));
    EXPECT_EQ(计算状态.错误数, 1);
    EXPECT_EQ(计算状态.首个错误, Q(u"定积分表达式---dx间隔太小错误！"));
    EXPECT_EQ(变量文本(u'F'), u"5"_qs);
    // An evaluation error: the evaluator's message first, then the integral's.
    重置脚本状态();
    变量(u'F') = 数值(u"5");
    EXPECT_FALSE(积分赋值算式(Q(u"F=\u222B(1/0)(1)(X)")));
    EXPECT_GE(计算状态.错误数, 2);
    EXPECT_EQ(计算状态.错误提示, Q(u"定积分表达式---参数A计算错误！"));
    // "∫" at position 1: no target; groups missing: nothing found. Silent.
    重置脚本状态();
    变量(u'F') = 数值(u"5");
    EXPECT_EQ(运行算式(Q(u"\u222B(0)(2)(X);F=\u222B(0)(2);F")), u"5"_qs);
    EXPECT_EQ(计算状态.错误数, 0);
    // What the last integral left in 积分错误 is what such a statement reports.
    定积分计算(Q(u"\u222B(0)(1E-13)(X)(1000)"));
    EXPECT_FALSE(积分赋值算式(Q(u"\u222B(0)(2)(X)")));
    EXPECT_EQ(计算状态.首个错误, Q(u"定积分表达式---dx间隔太小错误！"));
}

TEST_F(积分, PromptShowsTheStripCountAndYesStops) {
    const struct { const char16_t* 项; const char16_t* 分钟; double dx; } 表[] = {
        {u"\u222B(0)(1)(X)(200000)", u"100000.000", 1e-5},  // above the ceiling
        {u"\u222B(0)(1)(X)", u"1000.000", 1e-3},            // no fourth group
        {u"\u222B(0)(1)(X)(0)", u"100.000", 1e-2},          // below 1
        {u"\u222B(0)(1)(X)(150)", u"150.000", 0.006666666667},
    };
    for (const auto& e : 表) {
        重置脚本状态();
        交互记录().记录.clear();
        交互记录().回答队列 = {true};
        假时钟作用域 钟(6000.0);   // 100 rounds "take" 6000 s: the estimate in minutes is N
        变量(u'X') = 数值(u"7");
        EXPECT_EQ(定积分计算(Q(e.项)), 0.0);
        ASSERT_EQ(交互记录().记录.size(), 1) << 文(Q(e.项));
        const auto& r = 交互记录().记录.first();
        EXPECT_TRUE(r.是询问);
        EXPECT_EQ(r.标题, Q(u"提醒：耗时太多！"));
        EXPECT_EQ(r.文本, Q(u"计算此定积分算式的总循环时间可能超过： ") + Q(e.分钟)
                              + Q(u" 分钟。\r\n\r\n是否终止当前循环，改小循环次数(会降低精度)后再进行计算？"));
        EXPECT_EQ(脚本状态.积分错误, Q(u"你手工终止了---积分算式的计算循环！"));
        // X is left where the loop stopped: 100 strips on from the first midpoint.
        EXPECT_NEAR(读双(变量(u'X')), 100.5 * e.dx, 1e-12) << 文(Q(e.项));
    }
}

TEST_F(积分, PromptAnsweredNoGoesOnAndComesOnlyOnce) {
    交互记录().回答队列 = {false};
    {
        假时钟作用域 钟(6000.0);
        变量(u'X') = 数值(u"7");
        ASSERT_TRUE(积分赋值算式(Q(u"F=\u222B(0)(1)(X^2)(150)")));
        EXPECT_EQ(交互记录().记录.size(), 1);   // asked once, at round 100
        EXPECT_NEAR(读双(变量(u'F')), 中点和(0, 0.006666666667, 150, 平方), 1e-12);
        EXPECT_EQ(变量文本(u'X'), u"7"_qs);
        ASSERT_TRUE(积分赋值算式(Q(u"F=\u222B(0)(1)(X)(99)")));   // the question comes at round 100
    }
    {
        假时钟作用域 钟(0.001);   // 100 rounds in a millisecond
        ASSERT_TRUE(积分赋值算式(Q(u"F=\u222B(0)(1)(X)(100000)")));
    }
    EXPECT_EQ(交互记录().记录.size(), 1);
}
