// Powers, roots and logarithms; circular functions, angle units and the
// packed-degree conversions of both families; array statistics. Reference
// values to 40 digits come from arbitrary-precision arithmetic; angle
// products are worked digit by digit from 0.0174532925199432957692369077
// (π/180 to 28 places); packed forms by hand (45.303 is 45°30′30″).
#include "numeric/circular.h"
#include "numeric/guarded.h"
#include "numeric/powers.h"
#include "numeric/statistics.h"
#include "numeric/value.h"
#include "tests/support/recording.h"
#include "numeric/state.h"

#include "numeric_test_support.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace {

using namespace 数值测试;

class 函数 : public 状态复位 {
protected:
    交互记录作用域 框;
    void SetUp() override {
        状态复位::SetUp();
        计算状态.角度单位 = 60;
    }
    void TearDown() override {
        状态复位::TearDown();
        计算状态.角度单位 = 60;
    }
};

const double kNaN = std::numeric_limits<double>::quiet_NaN();

// ---- 乘方 ------------------------------------------------------------------

TEST_F(函数, 乘方的精确结果与计数) {
    const struct { const char* x; const char* y; const char* 结果; int 位数, 损失; } 例[] = {
        {"2", "10", "D:1024", 28, 0}, {"2", "-2", "D:0.25", 28, 0}, {"-2", "3", "D:-8", 28, 0},
        {"0", "0", "D:1", 29, 0},                  // b = 0 wins, also over a zero base
        {"abc", "0", "D:1", 29, 0},                // ... before the base is even read
        {"0", "5", "D:0", 29, 0},                  // zero base: no iteration, digits kept
        {"4", "-0.5", "D:0.5", 28, 0}, {"16", "0.5", "D:4", 28, 0}, {"3", "13", "D:1594323", 28, 0},
        {"7", "25", "D:1341068619663964900807", 28, 0},           // 7^25, exact integer
        {"0.5", "-90", "D:1237940039285380274899124224", 28, 0},  // 2^90 exactly
        {"-3", "-3", "D:-0.037037037037037037037037037", 28, 0},  // -1/27 to 28 places
        // Results a decimal cannot carry go to double and cost the digits.
        {"10", "30", "F:1E+30", 15, 2},            // probe reading falls, then the double tier
        {"2", "96", "F:7.92281625142643E+28", 15, 2},
    };
    for (const auto& e : 例) {
        清除计算状态();
        SCOPED_TRACE(std::string(e.x) + "^" + e.y);
        EXPECT_EQ(述(乘方(T(e.x), T(e.y))), e.结果);
        EXPECT_EQ(计算状态.可达有效位数, e.位数);
        EXPECT_EQ(计算状态.精度损失数, e.损失);
        EXPECT_EQ(计算状态.错误数, 0) << S(计算状态.错误记录);
    }
}

TEST_F(函数, 乘方的迭代结果保住二十七位以上) {
    const struct { const char* x; const char* y; const char* 真值; double 容差; } 例[] = {
        {"2", "0.5", "1.414213562373095048801688724209698078570", 1E-27},
        {"2", "0.3", "1.231144413344916284499393069167743109876", 1E-26},
        {"3", "2.5", "15.58845726811989564174701707355285130249", 1E-25},
        {"10", "-0.25", "0.5623413251903490803949510397764812314683", 1E-26},
        {"1.1", "100", "13780.61233982227018411833717208963677626", 1E-22},
        {"0.03", "-6.3", "3927679981.89705964930368568553", 1E-17},
        // Twenty squarings double the first rounding error twenty times over.
        {"1.0000001", "1000000", "1.105170912549793416638382709346716159349", 1E-23},
    };
    for (const auto& e : 例) {
        清除计算状态();
        EXPECT_TRUE(接近(乘方(T(e.x), T(e.y)), e.真值, e.容差)) << e.x << "^" << e.y;
        EXPECT_EQ(计算状态.可达有效位数, 28) << e.x << "^" << e.y;
        EXPECT_EQ(计算状态.精度损失数, 0) << e.x << "^" << e.y;
    }
    // An exponent just below a power of two makes the doubling creep one step
    // a round; such a power must still come back at once and right.
    const auto 始 = std::chrono::steady_clock::now();
    const 数值 r = 乘方(T("1.000000000000001"), T("1099511627773"));   // 2^40 - 3
    EXPECT_LT(std::chrono::duration<double>(std::chrono::steady_clock::now() - 始).count(), 10.0);
    EXPECT_TRUE(接近(r, "1.001100116312281712056523948703503989831", 1E-16));
}

TEST_F(函数, 乘方与开平方的失败) {
    const char* 开方头 = "  进行[开平方]运算时， ";
    const char* 开方尾 = " 数值超出计算范围！返回数值用 [1] 表示。";
    const struct { bool 开方; const char* x; const char* y; std::string 首个错误; } 例[] = {
        {false, "0", "-1", "0^-1 乘方计算超出本程序计算范围！返回 [1] 。"},
        {false, "-8", "0.5", std::string(开方头) + "-8" + 开方尾},
        {false, "-8", "0.25", "-8^0.25 乘方计算超出本程序计算范围！返回 [1] 。"},
        {false, " 10 ", "400", "10^400 乘方计算超出本程序计算范围！返回 [1] 。"},
        {false, "1E+300", "2", "1E+300^2 乘方计算超出本程序计算范围！返回 [1] 。"},
        {true, " -0.25 ", "", std::string(开方头) + "-0.25" + 开方尾},
        {true, "1E+30", "", std::string(开方头) + "1E+30" + 开方尾},
    };
    for (const auto& e : 例) {
        清除计算状态();
        EXPECT_EQ(述(e.开方 ? 开平方(T(e.x)) : 乘方(T(e.x), T(e.y))), "T:1") << e.x << "^" << e.y;
        EXPECT_EQ(计算状态.错误数, 1) << e.x << "^" << e.y << S(计算状态.错误记录);
        EXPECT_EQ(S(计算状态.首个错误), e.首个错误);
    }
}

TEST_F(函数, 高精度关闭与二十八位规则) {
    计算状态.高精度开关 = false;
    for (const 数值& r : {乘方(T("2"), T("0.5")), 开平方(T("2"))}) {
        ASSERT_TRUE(r.是双精度()) << 述(r);
        EXPECT_DOUBLE_EQ(r.双精度值(), std::sqrt(2.0));
    }
    EXPECT_EQ(计算状态.可达有效位数, 15);
    EXPECT_EQ(计算状态.错误数, 0);
    EXPECT_EQ(述(开平方(T("-4"))), "T:1");
    EXPECT_EQ(计算状态.错误数, 1);
    // After a step in double, a decimal power or root must not claim 28 digits.
    计算状态.高精度开关 = true;
    EXPECT_EQ(述(乘方(T("2"), T("3"))), "D:8");
    开平方(T("3"));
    EXPECT_EQ(计算状态.可达有效位数, 15);
}

TEST_F(函数, 开平方的精确与迭代) {
    const struct { const char* x; const char* 结果; const char* 真值; int 位数; } 例[] = {
        {"16", "D:4", "", 29}, {"0", "D:0", "", 29}, {"1.44", "D:1.2", "", 29},   // squares: no iteration
        {"1E+28", "D:100000000000000", "", 29}, {"0.0000000000000000000000000001", "D:0.00000000000001", "", 29},
        {"2", "", "1.414213562373095048801688724209698078570", 28},
        {"0.5", "", "0.7071067811865475244008443621048490392848", 28},
        {"79228162514264337593543950335", "", "281474976710655.9999999999999982236431606", 28},
        {"0.000000000000000000000000001", "", "0.0000000000000316227766016837933199889", 28},   // still 28 places
    };
    for (const auto& e : 例) {
        清除计算状态();
        const 数值 r = 开平方(T(e.x));
        if (*e.结果) { EXPECT_EQ(述(r), e.结果) << e.x; }
        else { EXPECT_TRUE(接近(r, e.真值, 1E-27)) << e.x; }
        EXPECT_EQ(计算状态.可达有效位数, e.位数) << e.x;
        EXPECT_EQ(计算状态.错误数, 0) << e.x;
    }
}

TEST_F(函数, 对数走双精度并拒绝非正数) {
    for (const auto& [常用, x, 值] : {std::tuple{false, "10", 2.302585092994046}, std::tuple{true, "2", 0.3010299956639812}}) {
        清除计算状态();
        const 数值 r = 常用 ? 求常用对数(T(x)) : 求自然对数(T(x));
        ASSERT_TRUE(r.是双精度()) << x << " " << 述(r);
        EXPECT_NEAR(r.双精度值(), 值, 1E-14) << x;
        EXPECT_EQ(计算状态.精度损失数, 1) << x;
        EXPECT_EQ(计算状态.可达有效位数, 15) << x;
    }
    清除计算状态();
    EXPECT_EQ(述(求自然对数(T("0"))), "T:1");
    EXPECT_EQ(述(求常用对数(T("-5"))), "T:1");
    EXPECT_EQ(S(计算状态.错误记录), "ln(x)的x 小于等于0错误。\r\nlg(x)的x 小于等于0错误。\r\n");
    EXPECT_EQ(计算状态.精度损失数, 0);
}

// ---- Circular functions ----------------------------------------------------------

const char* const kπ除二 = "1.5707963267948966192313216916";
const char* const kπ = "3.1415926535897932384626433833";
const char* const k三π除二 = "4.7123889803846898576939650749";

数值 调用(char f, const 数值& x) {
    switch (f) {
    case 's': return HvtSin(x);
    case 'c': return HvtCos(x);
    case 't': return HvtTan(x);
    default: return HvtCot(x);
    }
}

TEST_F(函数, 特殊角给精确值不动位数) {
    const struct { char f; const char* x; const char* 结果; } 例[] = {
        {'s', "0", "D:0"}, {'s', kπ除二, "D:1"}, {'s', kπ, "D:0"}, {'s', k三π除二, "D:-1"},
        {'s', "6.2831853071795864769252867666", "D:0"}, {'s', "-3.1415926535897932384626433833", "D:0"},
        {'c', kπ除二, "D:0"}, {'c', kπ, "D:-1"}, {'t', kπ, "D:0"}, {'k', kπ除二, "D:0"},   // π/2 - π/2 is 0
    };
    for (const auto& e : 例) {
        清除计算状态();
        EXPECT_EQ(述(调用(e.f, T(e.x))), e.结果) << e.f << "(" << e.x << ")";
        EXPECT_EQ(计算状态.可达有效位数, 29) << e.f << "(" << e.x << ")";
        EXPECT_EQ(计算状态.错误数, 0);
    }
    const struct { char f; const char* x; const char* 消息; } 极[] = {
        {'t', kπ除二, "  进行[HvtTan]正切运算时， 1.5707963267948966192313216916 数值超出计算范围，我无法计算！返回数值用 [空值] 表示。"},
        {'k', " 0 ", "  进行[HvtCot]余切运算时， 0 数值超出计算范围，我无法计算！返回数值用 [空值] 表示。"},
    };
    for (const auto& e : 极) {
        清除计算状态();
        EXPECT_EQ(述(调用(e.f, T(e.x))), "E:") << e.x;
        EXPECT_EQ(计算状态.错误数, 1) << e.x;
        EXPECT_EQ(S(计算状态.首个错误), e.消息);
    }
    // Close to the pole, but not on it, a large quotient stands.
    清除计算状态();
    const 数值 近 = HvtTan(T("1.5707963267948966192313216"));
    ASSERT_TRUE(近.是十进制()) << 述(近);
    EXPECT_LT(1E+20, 近.十进制值().toDouble());
}

TEST_F(函数, 正弦余弦正切余切到二十六位以上) {
    const struct { char f; const char* x; const char* 真值; } 例[] = {
        {'s', "1", "0.8414709848078965066525023216302989996226"},
        {'c', "1", "0.5403023058681397174009366074429766037323"},
        {'t', "1", "1.557407724654902230506974807458360173087"},
        {'k', "1", "0.6420926159343307030064199865942656202303"},
        {'s', "3", "0.1411200080598672221007448028081102798469"},      // second quadrant
        {'s', "4", "-0.7568024953079282513726390945118290941359"},     // third
        {'c', "3", "-0.9899924966004454572715727947312613023937"},
        {'s', "-1", "-0.8414709848078965066525023216302989996226"},     // fourth
        {'s', "0.0001", "0.00009999999983333333341666666664682539682815"},
        {'c', "0.0001", "0.9999999950000000041666666652777777780258"},
        {'s', "6.28", "-0.003185301793138238994513181917350549313289"},
        {'k', "6.28", "-313.9404024659638916777498680013392141815"},
        // Large arguments carry the error of the 28-place 2π times the turns.
        {'s', "100", "-0.506365641109758793656557610459785432065"},
        {'s', "1000", "0.8268795405320025602558874291092181412127"},
    };
    for (const auto& e : 例) {
        清除计算状态();
        const double 量 = std::fabs(std::stod(e.x)), 值 = std::fabs(std::stod(e.真值));
        // Tangent and cotangent divide two 27-digit values: relative error.
        const double 容 = (e.f == 't' || e.f == 'k') ? 4E-27 * std::max(1.0, 值 * 值) : 3E-27 + 量 * 3E-29;
        EXPECT_TRUE(接近(调用(e.f, T(e.x)), e.真值, 容)) << e.f << "(" << e.x << ")";
        EXPECT_EQ(计算状态.可达有效位数, 27) << e.f << "(" << e.x << ")";
    }
    计算状态.高精度开关 = false;
    const 数值 r = HvtSin(T("0.5"));
    ASSERT_TRUE(r.是双精度()) << 述(r);
    EXPECT_DOUBLE_EQ(r.双精度值(), std::sin(0.5));
    EXPECT_EQ(计算状态.可达有效位数, 15);
}

// An argument beyond the decimal has lost its digits in the remainder; the
// sine must still be a sine, and the fall must show in the counters.
TEST_F(函数, 巨大自变量仍在一圈之内) {
    for (const char* x : {"1E+30", "79228162514264337593543950335", "-1234567890123456789012345678"}) {
        清除计算状态();
        const 数值 r = HvtSin(T(x));
        ASSERT_TRUE(r.是十进制()) << x << " " << 述(r) << S(计算状态.错误记录);
        EXPECT_FALSE(Decimal96::fromInt64(1) < r.十进制值().abs()) << x;
        EXPECT_EQ(计算状态.错误数, 0) << x;
    }
    EXPECT_EQ(计算状态.可达有效位数, 27);
    清除计算状态();
    HvtSin(T("1E+30"));
    EXPECT_EQ(计算状态.可达有效位数, 15);
    // So far out that not even the double remainder is one turn the decimal
    // can hold: the sine reports instead of guessing.
    EXPECT_EQ(述(HvtSin(T("1E+300"))), "E:");
    EXPECT_EQ(S(计算状态.错误提示), "  进行[HvtSin]正弦运算时， 1E+300 数值超出计算范围，我无法计算！返回数值用 [空值] 表示。");
}

TEST_F(函数, 度转弧度按角度单位) {
    const struct { int 单位; const char* x; const char* 结果; } 例[] = {
        {3, "30", "D:30"}, {7, "30", "E:"},                     // radians; no such unit
        {60, "30", "D:0.523598775598298873077107231"},          // 30 · π/180
        {100, "30", "D:0.523598775598298873077107231"},
        {400, "30", "D:0.4712388980384689857693965079"},        // 27 · π/180
        {60, "45.3", "D:0.7941248096574199575002793004"},       // 45.5 · π/180, tie to even
        {100, "45.3", "D:0.7906341511534312983464319188"},      // 45.3 · π/180
        {60, "-45.3", "D:-0.7941248096574199575002793004"},
        {60, "1E+30", "D:0"},                                   // beyond the plain form
    };
    for (const auto& e : 例) {
        计算状态.角度单位 = e.单位;
        EXPECT_EQ(述(度转弧度(T(e.x))), e.结果) << e.单位 << " " << e.x;
    }
    计算状态.角度单位 = 60;
    EXPECT_EQ(述(度分秒转弧度(T("45.3"))), "D:0.7941248096574199575002793004");
    EXPECT_EQ(述(度分秒转弧度(T("1E+30"))), "D:0");
    EXPECT_EQ(计算状态.错误数, 0);
    for (int 单位 : {60, 100}) {   // sin 30° is one half as far as the constants allow
        计算状态.角度单位 = 单位;
        EXPECT_TRUE(接近(HvtSin(度转弧度(T("30"))), "0.5", 1E-27)) << 单位;
    }
    计算状态.角度单位 = 400;
    EXPECT_TRUE(接近(HvtSin(度转弧度(T("100"))), "1", 1E-27));   // a right angle in grads
}

// ---- Packed degrees ------------------------------------------------------------------

TEST_F(函数, 度分秒转十进制度与提示框) {
    const std::string 秒框 = " 度分秒格式的角度数据--[秒] 数据不能大于60！超出后按60计算。请检查是否角度类型选择错误。";
    const std::string 分框 = " 度分秒格式的角度数据--[分秒] 数据不能大于59599999....！超出后按60计算。请检查是否角度类型选择错误。";
    const struct { const char* x; const char* 结果; std::vector<std::string> 框; } 例[] = {
        {"45.3", "D:45.5", {}}, {"-45.3", "D:-45.5", {}}, {"45", "D:45", {}}, {"1E+30", "D:0", {}},
        {"45.303", "D:45.508333333333333333333333333", {}},   // 45°30′30″: padding keeps places
        {"-0.3", "D:-0.5", {}},                               // sign of the whole number
        {"45.5959", "D:45.999722222222222222222222222", {}},  // 45°59′59″
        {"45.6", "D:46", {}},                                 // 60′ is not above 60
        {"45.7", "D:46", {分框}},
        {"45.0061", "D:45.016666666666666666666666667", {秒框}},  // 61″ taken as 60
        {"45.9961", "D:46", {秒框, 分框}},
    };
    for (const auto& e : 例) {
        框.记录器.记录.clear();
        EXPECT_EQ(述(度转梯度(T(e.x))), e.结果) << e.x;
        ASSERT_EQ(框.记录器.记录.size(), e.框.size()) << e.x;
        for (size_t i = 0; i < e.框.size(); ++i) {
            const auto& 项 = 框.记录器.记录[static_cast<qsizetype>(i)];
            EXPECT_FALSE(项.是询问);
            EXPECT_TRUE(项.标题.isEmpty());
            EXPECT_EQ(S(项.文本), e.x + e.框[i]);
        }
    }
    EXPECT_EQ(计算状态.错误数, 0);
}

TEST_F(函数, 十进制度转度分秒与往返) {
    const struct { const char* x; const char* 结果; } 例[] = {
        {"45.5", "D:45.3"}, {"0.25", "D:0.15"}, {"-45.5", "D:-45.3"}, {"-0.25", "D:-0.15"}, {"1E+30", "D:0"},
        {"10.5125", "D:10.3045"}, {"0.0001", "D:0.000036"},   // 30′45″; 0.36″: two integer digits of seconds
        {"45.0999999999999999999999999999", "D:45.06"},         // 60″ carry into the minutes
        {"59.9999999999999999999999999999", "D:60"},            // ... and through into the degrees
        {"-59.9999999999999999999999999999", "D:-60"},
        {"0.9999999999999999999999999999", "D:1"}, {"-0.9999999999999999999999999999", "D:-1"},
    };
    for (const auto& e : 例) EXPECT_EQ(述(度转度分秒(T(e.x))), e.结果) << e.x;
    EXPECT_EQ(计算状态.错误数, 0);
    for (const char* p : {"45.3030", "0.5959", "-33.1545", "179.5959999"}) {
        const 数值 回 = 度转度分秒(度转梯度(T(p)));
        EXPECT_TRUE(接近(回, p, 1E-22)) << p << " → " << 述(回);
    }
}

TEST_F(函数, 角度文本两个方向) {
    const struct { double x; const char* 文; } 出[] = {
        {45.59599999, "45°59′59.9999″"}, {45, "45°00′00″"}, {-45.5, "-45°50′00″"}, {5.5, "05°50′00″"},
        {45.7, "45°60′00″"},   // minutes digits above 60 show as 60
        {1E+20, "0°"}, {kNaN, "0°"},
    };
    for (const auto& e : 出) EXPECT_EQ(S(角度转文本(e.x, QStringLiteral("00.00000000"))), e.文) << e.x;
    const struct { const char* 文; double x; } 入[] = {
        {"45°59′59.9999″", 45.59599999}, {"45°", 45.0}, {"-0°30′", -0.3},   // the sign of zero degrees survives
        {"12°75′", 12.60},                // minutes above 60 are 60
        {"12°30′61″", 12.30599999},       // seconds of 60 or more are 59.9999
        {"12°30′15.55555″", 12.30155556}, // four decimals, half away from zero
        {"45.6°", 46.0},                  // degrees rounded to an integer
        {"30′", 0.30}, {"+°10′", 0.10}, {"abc°", 0.0},
    };
    for (const auto& e : 入) EXPECT_DOUBLE_EQ(文本转角度(QString::fromUtf8(e.文)), e.x) << e.文;
}

TEST_F(函数, 双精度族的进位与弧度) {
    const struct { double x, 结果; } 规[] = {
        {45.5960, 46.0}, {-45.5960, -46.0}, {-0.5960, -1.0}, {45.6, 46.0}, {45.12, 45.12},
        {45.99995, 46.40395},   // 99′99″5: 99″ gives 60 up, 100′ gives 60 up
        {-0.3, -0.3}, {2E+15, 2E+15},   // the sign of zero degrees is put back; beyond the bound: unchanged
    };
    for (const auto& e : 规) EXPECT_DOUBLE_EQ(规范度分秒(e.x), e.结果) << e.x;
    EXPECT_TRUE(std::isnan(规范度分秒(kNaN)));
    const struct { double x, 结果; } 度[] = {
        {45.5, 45.3}, {-0.25, -0.15}, {0.0001, 0.000036}, {2E+15, 2E+15},
        {45.99999888888889, 46.0},   // 59′59.996″ rounds to 60.00″: carries twice
        {59.999999999999, 60.0}, {-59.999999999999, -60.0},
        {33.3333333, 33.2},          // 19′59.99988″ shows as 20′00.00″
    };
    for (const auto& e : 度) EXPECT_NEAR(度转度分秒双精度(e.x), e.结果, std::fabs(e.结果) * 1E-15) << e.x;
    const struct { double x, 结果; } 梯[] = {{45.3, 45.5}, {-0.3, -0.5}, {45.7, 46.0}, {45.9961, 46.0}, {1E+30, 0.0}};
    for (const auto& e : 梯) EXPECT_NEAR(度转梯度双精度(e.x), e.结果, std::fabs(e.结果) * 1E-15) << e.x;
    EXPECT_TRUE(框.记录器.记录.isEmpty());   // clamped silently
    const long double π = 3.14159265358979323846264338327950L;
    EXPECT_DOUBLE_EQ(十进制度转弧度(-90.0), static_cast<double>(-π / 2));
    EXPECT_DOUBLE_EQ(度分秒转弧度双精度(-120.3045), static_cast<double>(-120.5125L * π / 180));
    EXPECT_EQ(十进制度转弧度(179769313486233.0), 0.0);
    EXPECT_EQ(度分秒转弧度双精度(-179769313486233.0), 0.0);
    EXPECT_NE(十进制度转弧度(179769313486232.0), 0.0);
}

// The double family must agree with the decimal one: same digits, same steps.
TEST_F(函数, 两族一致) {
    for (double x : {45.303, -0.3, 0.000001, 45.6, 45.7, 45.9961, 123.4567891234, -179.59599, 89.5959999999}) {
        const 数值 d = 度转梯度(数值(x));
        ASSERT_TRUE(d.是十进制()) << x;
        EXPECT_EQ(度转梯度双精度(x), d.十进制值().toDouble()) << x;
    }
    // Decimal degrees to packed: the same but for seconds from 59.995 up,
    // which the double family shows as a carried 60.00″.
    for (double x : {45.5, -45.5, 10.5125, 0.0001, 12.3456789, 123.4567891234, -0.1234, 7.77777}) {
        const 数值 p = 度转度分秒(数值(x));
        ASSERT_TRUE(p.是十进制()) << x;
        EXPECT_NEAR(度转度分秒双精度(x), p.十进制值().toDouble(), 1E-12) << x;
    }
}

// ---- Array statistics ---------------------------------------------------------------

QList<数值> 列(const std::vector<const char*>& xs) {
    QList<数值> r;
    for (const char* x : xs) r.append(T(x));
    return r;
}

using 统计函数 = 数值 (*)(int, const QList<数值>&);
const struct { const char* 名; 统计函数 f; } k八个[] = {
    {"求合计值", 求合计值}, {"求最大值", 求最大值}, {"求最小值", 求最小值}, {"求平均值", 求平均值},
    {"求均方差", 求均方差}, {"求均方差n", 求均方差n}, {"求变异系数", 求变异系数}, {"求变异系数n", 求变异系数n},
};

统计函数 按名(const std::string& 名) {
    for (const auto& e : k八个)
        if (名 == e.名) return e.f;
    return nullptr;
}

TEST_F(函数, 统计的精确值) {
    for (const auto& e : k八个) {   // n below 1: decimal 0 from all eight
        for (int n : {0, -1}) EXPECT_EQ(述(e.f(n, 列({"5", "7"}))), "D:0") << e.名 << " n=" << n;
    }
    const struct { const char* 函数; std::vector<const char*> 值; const char* 结果; int 位数; } 例[] = {
        {"求合计值", {"0.1", "0.2"}, "D:0.3", 29}, {"求平均值", {"", "3"}, "D:1.5", 29},
        {"求合计值", {"1", "", "2.5", "   "}, "D:3.5", 29},      // blanks count as 0
        {"求合计值", {"7E+28", "7E+28"}, "F:1.4E+29", 15},       // beyond the decimal: the sum falls
        {"求平均值", {"1", "2", "2"}, "D:1.6666666666666666666666666667", 29},
        {"求最大值", {"1", "1.0", "2"}, "D:2", 29}, {"求最小值", {"3", "-0.5", "2"}, "D:-0.5", 29},
        {"求最大值", {"1", "1E+30"}, "F:1E+30", 15},          // a double beyond the decimal compares as double
        {"求均方差", {"5"}, "D:0", 29}, {"求均方差n", {"5"}, "D:0", 28},   // divisor 1: the root is taken
        {"求均方差n", {"2", "4", "4", "4", "5", "5", "7", "9"}, "D:2", 28},   // Σ = 32, /8 = 4
        {"求均方差", {"3", "3", "3"}, "D:0", 28}, {"求变异系数", {"3", "3", "3"}, "D:0", 28},
        {"求均方差n", {"", "2"}, "D:1", 28},                  // blank entry is 0: values 0, 2
        {"求变异系数", {"0", "0"}, "F:1E+28", 29},            // zero mean: infinite by decree
        {"求变异系数n", {"1", "3"}, "D:0.5", 28}, {"求变异系数", {"5"}, "D:0", 29},   // one value: no spread
    };
    for (const auto& e : 例) {
        清除计算状态();
        EXPECT_EQ(述(按名(e.函数)(static_cast<int>(e.值.size()), 列(e.值))), e.结果) << e.函数 << " over " << e.值.size();
        EXPECT_EQ(计算状态.可达有效位数, e.位数) << e.函数;
        EXPECT_EQ(计算状态.错误数, 0) << e.函数 << S(计算状态.错误记录);
    }
    清除计算状态();
    EXPECT_TRUE(接近(求均方差(2, 列({"1", "3"})), "1.414213562373095048801688724209698078570", 2E-27));   // √2
    EXPECT_TRUE(接近(求均方差(3, 列({"0.1", "0.2", "0.4"})), "0.1527525231651946668862682397909336162995", 2E-27));
    // Equal values: the first one read stands, which shows in its scale.
    EXPECT_EQ(求最大值(2, 列({"1.0", "1"})).十进制值().scale(), 1);
    EXPECT_EQ(求最小值(2, 列({"1", "1.0"})).十进制值().scale(), 0);
}

TEST_F(函数, 统计的故障) {
    // A count beyond the list is a fault of each of the first six.
    for (const char* 名 : {"求合计值", "求最大值", "求最小值", "求平均值", "求均方差", "求均方差n"}) {
        清除计算状态();
        EXPECT_EQ(述(按名(名)(3, 列({"1", "2"}))), "D:0") << 名;
        EXPECT_EQ(S(计算状态.错误提示), std::string("对数组[") + 名 + "]时超出本程序计算范围！返回 [0] 。");
    }
    // The squares are plain decimal products: (1E+20)² overflows and reports.
    清除计算状态();
    EXPECT_EQ(述(求均方差(2, 列({"1E+20", "-1E+20"}))), "D:0");
    EXPECT_EQ(计算状态.错误数, 1);
    // The coefficient over a faulted deviation adds nothing of its own.
    清除计算状态();
    EXPECT_EQ(述(求变异系数n(2, 列({"1E+20", "3E+20"}))), "D:0");
    EXPECT_EQ(计算状态.错误数, 1);
    EXPECT_EQ(S(计算状态.首个错误), "对数组[求均方差n]时超出本程序计算范围！返回 [0] 。");
    // A non-number entry reports through the guard and the rest still counts.
    清除计算状态();
    EXPECT_EQ(述(求最大值(3, 列({"2", "abc", "5"}))), "D:5");
    EXPECT_EQ(计算状态.错误数, 1);
}

}  // namespace
