// Circular functions in decimal, the angle units, and the packed-degree
// conversions of both families with their carries and message boxes.
// Reference values: sines and cosines to 40 digits from arbitrary-precision
// arithmetic; angle products worked out digit by digit from the constant
// 0.0174532925199432957692369077 (π/180 to 28 places); packed forms by hand
// (45.303 is 45°30′30″, and so on).
#include "numeric/circular.h"
#include "numeric/guarded.h"
#include "numeric/value.h"
#include "shell/interaction.h"
#include "shell/state.h"

#include "numeric_test_support.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace {

using namespace 数值测试;

const char* const kπ除二 = "1.5707963267948966192313216916";
const char* const kπ = "3.1415926535897932384626433833";
const char* const k三π除二 = "4.7123889803846898576939650749";
const char* const k二π = "6.2831853071795864769252867666";

const std::string k秒框 = " 度分秒格式的角度数据--[秒] 数据不能大于60！超出后按60计算。请检查是否角度类型选择错误。";
const std::string k分框 = " 度分秒格式的角度数据--[分秒] 数据不能大于59599999....！超出后按60计算。请检查是否角度类型选择错误。";

class 圆函数 : public ::testing::Test {
protected:
    交互记录作用域 框;
    void SetUp() override {
        清除计算状态();
        公共.高精度开关 = true;
        公共.角度单位 = 60;
    }
    void TearDown() override {
        清除计算状态();
        公共.高精度开关 = true;
        公共.角度单位 = 60;
    }
};

// ---- Exact points -------------------------------------------------------------

struct 精确点 {
    char 函数;          // s, c, t, k (cot)
    const char* x;
    const char* 结果;
    int 位数;
};

数值 调用(char f, const 数值& x) {
    switch (f) {
    case 's': return HvtSin(x);
    case 'c': return HvtCos(x);
    case 't': return HvtTan(x);
    default: return HvtCot(x);
    }
}

TEST_F(圆函数, 特殊角给精确值不动位数) {
    const 精确点 例[] = {
        {'s', "0", "D:0", 29},
        {'s', kπ除二, "D:1", 29},
        {'s', kπ, "D:0", 29},
        {'s', k三π除二, "D:-1", 29},
        {'s', k二π, "D:0", 29},
        {'s', "-3.1415926535897932384626433833", "D:0", 29},  // -π + 2π is π exactly
        {'c', "0", "D:1", 29},
        {'c', kπ除二, "D:0", 29},                              // π/2 - π/2 is 0
        {'c', kπ, "D:-1", 29},
        {'c', k三π除二, "D:0", 29},
        {'c', k二π, "D:1", 29},
        {'t', "0", "D:0", 29},
        {'t', kπ, "D:0", 29},
        {'k', kπ除二, "D:0", 29},
    };
    for (const auto& e : 例) {
        清除计算状态();
        EXPECT_EQ(述(调用(e.函数, T(e.x))), e.结果) << e.函数 << "(" << e.x << ")";
        EXPECT_EQ(公共.可达有效位数, e.位数) << e.函数 << "(" << e.x << ")";
        EXPECT_EQ(公共.错误数, 0) << e.函数 << "(" << e.x << ")";
    }
}

TEST_F(圆函数, 极点处正切余切报告空值) {
    struct 例 { char f; const char* x; const char* 消息; };
    const 例 表[] = {
        {'t', kπ除二, "  进行[HvtTan]正切运算时， 1.5707963267948966192313216916 数值超出计算范围，我无法计算！返回数值用 [空值] 表示。"},
        {'t', k三π除二, "  进行[HvtTan]正切运算时， 4.7123889803846898576939650749 数值超出计算范围，我无法计算！返回数值用 [空值] 表示。"},
        {'k', "0", "  进行[HvtCot]余切运算时， 0 数值超出计算范围，我无法计算！返回数值用 [空值] 表示。"},
        {'k', " 3.1415926535897932384626433833 ", "  进行[HvtCot]余切运算时， 3.1415926535897932384626433833 数值超出计算范围，我无法计算！返回数值用 [空值] 表示。"},
    };
    for (const auto& e : 表) {
        清除计算状态();
        EXPECT_EQ(述(调用(e.f, T(e.x))), "E:") << e.x;
        EXPECT_EQ(公共.错误数, 1) << e.x;
        EXPECT_EQ(S(公共.首个错误), e.消息);
    }
    // Close to the pole, but not on it, a large quotient stands.
    清除计算状态();
    const 数值 近 = HvtTan(T("1.5707963267948966192313216"));
    ASSERT_TRUE(近.是十进制()) << 述(近);
    EXPECT_LT(1E+20, 近.十进制值().toDouble());
    EXPECT_EQ(公共.错误数, 0);
}

// ---- Values against independent references ------------------------------------

struct 值例 {
    char 函数;
    const char* x;
    const char* 真值;
};

TEST_F(圆函数, 正弦余弦正切余切到二十六位以上) {
    const 值例 例[] = {
        {'s', "1", "0.8414709848078965066525023216302989996226"},
        {'c', "1", "0.5403023058681397174009366074429766037323"},
        {'t', "1", "1.557407724654902230506974807458360173087"},
        {'k', "1", "0.6420926159343307030064199865942656202303"},
        {'s', "0.5", "0.4794255386042030002732879352155713880818"},
        {'c', "2", "-0.416146836547142386997568229500762189766"},
        {'t', "2", "-2.185039863261518991643306102313682543432"},
        {'s', "3", "0.1411200080598672221007448028081102798469"},
        {'c', "3", "-0.9899924966004454572715727947312613023937"},
        {'k', "3", "-7.015252551434533469428551379526476578293"},
        {'s', "-1", "-0.8414709848078965066525023216302989996226"},
        {'s', "0.0001", "0.00009999999983333333341666666664682539682815"},
        {'c', "0.0001", "0.9999999950000000041666666652777777780258"},
        {'s', "6.28", "-0.003185301793138238994513181917350549313289"},
        {'c', "6.28", "0.999994926913375211208352938047322708952"},
        {'k', "6.28", "-313.9404024659638916777498680013392141815"},
        // Large arguments carry the error of the 28-place 2π times the turns.
        {'s', "100", "-0.506365641109758793656557610459785432065"},
        {'s', "1000", "0.8268795405320025602558874291092181412127"},
    };
    for (const auto& e : 例) {
        清除计算状态();
        const double 量 = std::fabs(std::stod(e.x));
        const 数值 r = 调用(e.函数, T(e.x));
        // Tangent and cotangent divide two 27-digit values: relative error.
        const double 值 = std::fabs(std::stod(e.真值));
        const double 容 = (e.函数 == 't' || e.函数 == 'k') ? 4E-27 * std::max(1.0, 值 * 值)
                                                             : 3E-27 + 量 * 3E-29;
        EXPECT_TRUE(接近(r, e.真值, 容)) << e.函数 << "(" << e.x << ")";
        EXPECT_EQ(公共.可达有效位数, 27) << e.函数 << "(" << e.x << ")";
    }
}

// An argument beyond the decimal has lost its digits in the remainder; the
// sine must still be a sine, and the fall must show in the counters.
TEST_F(圆函数, 巨大自变量仍在一圈之内) {
    for (const char* x : {"1E+30", "-1E+30", "79228162514264337593543950335", "-1234567890123456789012345678"}) {
        清除计算状态();
        const 数值 r = HvtSin(T(x));
        ASSERT_TRUE(r.是十进制()) << x << " " << 述(r) << S(公共.错误记录);
        EXPECT_FALSE(Decimal96::fromInt64(1) < r.十进制值().abs()) << x;
        EXPECT_EQ(公共.错误数, 0) << x;
    }
    清除计算状态();
    HvtSin(T("1E+30"));
    EXPECT_EQ(公共.可达有效位数, 15);
    // So far out that not even the double remainder is a number of one turn
    // the decimal can hold: the sine reports instead of guessing.
    清除计算状态();
    EXPECT_EQ(述(HvtSin(T("1E+300"))), "E:");
    EXPECT_EQ(S(公共.错误提示), "  进行[HvtSin]正弦运算时， 1E+300 数值超出计算范围，我无法计算！返回数值用 [空值] 表示。");
}

TEST_F(圆函数, 高精度关闭时正弦走双精度) {
    公共.高精度开关 = false;
    const 数值 r = HvtSin(T("0.5"));
    ASSERT_TRUE(r.是双精度()) << 述(r);
    EXPECT_DOUBLE_EQ(r.双精度值(), std::sin(0.5));
    EXPECT_EQ(公共.精度损失数, 1);
    EXPECT_EQ(公共.可达有效位数, 15);
}

// ---- Angle units ----------------------------------------------------------------

struct 单位例 {
    int 单位;
    const char* x;
    const char* 结果;
};

TEST_F(圆函数, 度转弧度按角度单位) {
    const 单位例 例[] = {
        {3, "30", "D:30"},
        {3, "-0.5", "D:-0.5"},
        {60, "30", "D:0.523598775598298873077107231"},          // 30 · π/180
        {100, "30", "D:0.523598775598298873077107231"},
        {400, "30", "D:0.4712388980384689857693965079"},        // 27 · π/180
        {60, "45.3", "D:0.7941248096574199575002793004"},       // 45.5 · π/180, tie to even
        {100, "45.3", "D:0.7906341511534312983464319188"},      // 45.3 · π/180
        {60, "-45.3", "D:-0.7941248096574199575002793004"},
        {60, "1E+30", "D:0"},                                   // beyond the plain form
        {100, "1E-30", "D:0"},
        {3, "1E+30", "D:0"},
        {7, "30", "E:"},                                        // no such unit
        {0, "30", "E:"},
    };
    for (const auto& e : 例) {
        清除计算状态();
        公共.角度单位 = e.单位;
        EXPECT_EQ(述(度转弧度(T(e.x))), e.结果) << e.单位 << " " << e.x;
        EXPECT_EQ(公共.错误数, 0);
    }
    公共.角度单位 = 60;
    EXPECT_EQ(述(度分秒转弧度(T("45.3"))), "D:0.7941248096574199575002793004");
    EXPECT_EQ(述(度分秒转弧度(T("1E+30"))), "D:0");
}

TEST_F(圆函数, 三十度正弦是一半) {
    for (int 单位 : {60, 100}) {
        公共.角度单位 = 单位;
        清除计算状态();
        const 数值 r = HvtSin(度转弧度(T("30")));
        EXPECT_TRUE(接近(r, "0.5", 1E-27)) << 单位;
        EXPECT_EQ(公共.可达有效位数, 27);
    }
    公共.角度单位 = 400;
    EXPECT_TRUE(接近(HvtSin(度转弧度(T("100"))), "1", 1E-27));  // a right angle in grads
}

// ---- Packed degrees to decimal degrees ---------------------------------------------

struct 梯度例 {
    const char* x;
    const char* 结果;
    std::vector<std::string> 框;  // message boxes, in order ("秒", "分")
};

TEST_F(圆函数, 度分秒转十进制度与提示框) {
    const 梯度例 例[] = {
        {"45.3", "D:45.5", {}},
        {"45.303", "D:45.508333333333333333333333333", {}},   // 45°30′30″: padding keeps places
        {"-45.3", "D:-45.5", {}},
        {"-0.3", "D:-0.5", {}},                               // sign of the whole number
        {"-0.003", "D:-0.0083333333333333333333333333", {}},  // -30″
        {"0.000001", "D:0.0000027777777777777777777778", {}}, // 0.01″
        {"45.5959", "D:45.999722222222222222222222222", {}},  // 45°59′59″
        {"45", "D:45", {}},
        {"45.6", "D:46", {}},                                 // 60′ is not above 60
        {"45.596", "D:46", {}},                               // 59′60″
        {"45.7", "D:46", {"分"}},
        {"45.0061", "D:45.016666666666666666666666667", {"秒"}},  // 61″ taken as 60
        {"45.9961", "D:46", {"秒", "分"}},
        {"1E+30", "D:0", {}},
        {"1E-30", "D:0", {}},
    };
    for (const auto& e : 例) {
        清除计算状态();
        框.记录器.记录.clear();
        EXPECT_EQ(述(度转梯度(T(e.x))), e.结果) << e.x;
        EXPECT_EQ(公共.错误数, 0) << e.x;
        ASSERT_EQ(框.记录器.记录.size(), e.框.size()) << e.x;
        for (size_t i = 0; i < e.框.size(); ++i) {
            const auto& 项 = 框.记录器.记录[static_cast<qsizetype>(i)];
            EXPECT_FALSE(项.是询问);
            EXPECT_TRUE(项.标题.isEmpty());
            EXPECT_EQ(S(项.文本), std::string(e.x) + (e.框[i] == "秒" ? k秒框 : k分框)) << e.x;
        }
    }
}

// ---- Decimal degrees to packed degrees ---------------------------------------------

struct 度分秒例 {
    const char* x;
    const char* 结果;
};

TEST_F(圆函数, 十进制度转度分秒与进位) {
    const 度分秒例 例[] = {
        {"45.5", "D:45.3"},
        {"0.25", "D:0.15"},
        {"-45.5", "D:-45.3"},
        {"-0.25", "D:-0.15"},
        {"45", "D:45"},
        {"10.5125", "D:10.3045"},                               // 30′45″
        {"0.0001", "D:0.000036"},                               // 0.36″: two integer digits of seconds
        {"12.3456789", "D:12.204444404"},                       // 20′44.44404″
        {"45.0999999999999999999999999999", "D:45.06"},         // 60″ carry into the minutes
        {"59.9999999999999999999999999999", "D:60"},            // ... and through into the degrees
        {"-59.9999999999999999999999999999", "D:-60"},
        {"0.9999999999999999999999999999", "D:1"},
        {"-0.9999999999999999999999999999", "D:-1"},
        {"1E+30", "D:0"},
    };
    for (const auto& e : 例) {
        清除计算状态();
        EXPECT_EQ(述(度转度分秒(T(e.x))), e.结果) << e.x;
        EXPECT_EQ(公共.错误数, 0) << e.x;
    }
}

TEST_F(圆函数, 度分秒往返) {
    const char* 例[] = {"45.3030", "12.0001", "0.5959", "-33.1545", "179.5959999", "1.0000001", "-0.0030"};
    for (const char* p : 例) {
        const 数值 回 = 度转度分秒(度转梯度(T(p)));
        EXPECT_TRUE(接近(回, p, 1E-22)) << p << " → " << 述(回);
    }
}

// ---- Text forms ------------------------------------------------------------------

TEST_F(圆函数, 角度转文本) {
    struct 例 { double x; const char* 文; };
    const 例 表[] = {
        {45.59599999, "45°59′59.9999″"},
        {45, "45°00′00″"},
        {-45.5, "-45°50′00″"},
        {5.5, "05°50′00″"},
        {12.345678, "12°34′56.7800″"},
        {45.7, "45°60′00″"},          // minutes digits above 60 show as 60
        {1E+20, "0°"},
        {1E-20, "0°"},
        {std::numeric_limits<double>::quiet_NaN(), "0°"},
    };
    for (const auto& e : 表) EXPECT_EQ(S(角度转文本(e.x)), e.文) << e.x;
}

TEST_F(圆函数, 文本转角度) {
    struct 例 { const char* 文; double x; };
    const 例 表[] = {
        {"45°59′59.9999″", 45.59599999},
        {"45°", 45.0},
        {"-12°30′", -12.3},
        {"-0°30′", -0.3},                 // the sign of zero degrees survives
        {"12°5′3.25″", 12.050325},
        {"12°75′", 12.60},                // minutes above 60 are 60
        {"12°30′61″", 12.30599999},       // seconds of 60 or more are 59.9999
        {"12°30′15.55555″", 12.30155556}, // four decimals, half away from zero
        {"45.6°", 46.0},                  // degrees rounded to an integer
        {"30′", 0.30},                    // no degree sign: 0 degrees
        {"+°10′", 0.10},
        {"", 0.0},
        {"abc°", 0.0},
    };
    for (const auto& e : 表) EXPECT_DOUBLE_EQ(文本转角度(QString::fromUtf8(e.文)), e.x) << e.文;
}

// ---- Double family --------------------------------------------------------------

struct 双例 {
    double x;
    double 结果;
};

TEST_F(圆函数, 规范度分秒进位) {
    const 双例 例[] = {
        {45.5960, 46.0},
        {-45.5960, -46.0},
        {-0.5960, -1.0},
        {45.3060, 45.31},
        {45.6, 46.0},
        {12.006, 12.01},
        {45.99995, 46.40395},   // 99′99″5: 99″ gives 60 up, 100′ gives 60 up
        {-0.3, -0.3},           // the sign of zero degrees is put back
        {45.12, 45.12},
        {45.0, 45.0},
        {2E+15, 2E+15},         // beyond the bound: unchanged
    };
    for (const auto& e : 例) EXPECT_DOUBLE_EQ(规范度分秒(e.x), e.结果) << e.x;
    EXPECT_TRUE(std::isnan(规范度分秒(std::numeric_limits<double>::quiet_NaN())));
}

TEST_F(圆函数, 度转度分秒双精度进位) {
    const 双例 例[] = {
        {45.5, 45.3},
        {-45.5, -45.3},
        {0.25, 0.15},
        {-0.25, -0.15},
        {45.0, 45.0},
        {10.5125, 10.3045},
        {0.0001, 0.000036},
        {45.99999888888889, 46.0},   // 59′59.996″ rounds to 60.00″: carries twice
        {59.999999999999, 60.0},
        {-59.999999999999, -60.0},
        {12.3456789, 12.204444404},
        {33.3333333, 33.2},          // 19′59.99988″ shows as 20′00.00″
        {2E+15, 2E+15},
    };
    for (const auto& e : 例) EXPECT_NEAR(度转度分秒双精度(e.x), e.结果, std::fabs(e.结果) * 1E-15) << e.x;
}

TEST_F(圆函数, 度转梯度双精度与弧度) {
    const 双例 例[] = {
        {45.3, 45.5},
        {-0.3, -0.5},
        {45.7, 46.0},            // clamped silently
        {45.9961, 46.0},
        {45.303, 45.508333333333333},
        {45.0, 45.0},
        {1E+30, 0.0},            // no decimal reading
        {1E-30, 0.0},
    };
    for (const auto& e : 例) EXPECT_NEAR(度转梯度双精度(e.x), e.结果, std::fabs(e.结果) * 1E-15) << e.x;
    EXPECT_TRUE(框.记录器.记录.isEmpty());

    const long double π = 3.14159265358979323846264338327950L;
    EXPECT_DOUBLE_EQ(十进制度转弧度(180.0), static_cast<double>(π));
    EXPECT_DOUBLE_EQ(十进制度转弧度(-90.0), static_cast<double>(-π / 2));
    EXPECT_DOUBLE_EQ(度分秒转弧度双精度(45.3), static_cast<double>(45.5L * π / 180));
    EXPECT_DOUBLE_EQ(度分秒转弧度双精度(-120.3045), static_cast<double>(-120.5125L * π / 180));
    EXPECT_EQ(十进制度转弧度(179769313486233.0), 0.0);
    EXPECT_EQ(度分秒转弧度双精度(-179769313486233.0), 0.0);
    EXPECT_NE(十进制度转弧度(179769313486232.0), 0.0);
}

// The double family must agree with the decimal one: same digits, same steps.
TEST_F(圆函数, 两族一致) {
    const double 例[] = {45.3, 45.303, -45.3, -0.3, 0.000001, 45.5959, 45.6, 45.7, 45.0061, 45.9961,
                         123.4567891234, -179.59599, 0.1, 33.3333333, 89.5959999999};
    for (double x : 例) {
        const 数值 d = 度转梯度(数值(x));
        ASSERT_TRUE(d.是十进制()) << x;
        EXPECT_EQ(度转梯度双精度(x), d.十进制值().toDouble()) << x;
    }
    // Decimal degrees to packed: the same but for seconds from 59.995 up,
    // which the double family shows as a carried 60.00″.
    const double 度[] = {45.5, 0.25, -45.5, 10.5125, 0.0001, 12.3456789, 123.4567891234, -0.1234, 7.77777};
    for (double x : 度) {
        const 数值 p = 度转度分秒(数值(x));
        ASSERT_TRUE(p.是十进制()) << x;
        EXPECT_NEAR(度转度分秒双精度(x), p.十进制值().toDouble(), 1E-12) << x;
    }
}

}  // namespace
