// Powers, square roots and logarithms: the three tiers, the 28-digit rule,
// the digits of iterated results against values computed independently to
// 40 digits (arbitrary-precision arithmetic, rounded by hand to the digits
// stated), and the exact failure messages.
#include "numeric/powers.h"
#include "numeric/guarded.h"
#include "numeric/value.h"
#include "shell/state.h"

#include "numeric_test_support.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <string>

namespace {

using namespace 数值测试;

class 乘方开方 : public ::testing::Test {
protected:
    void SetUp() override { 清除计算状态(); 公共.高精度开关 = true; }
    void TearDown() override { 清除计算状态(); 公共.高精度开关 = true; }
};

// ---- 乘方: exact results, kinds and counters -----------------------------

struct 精确例 {
    const char* x;
    const char* y;
    const char* 结果;
    int 位数;   // 可达有效位数 afterwards
    int 损失;   // 精度损失数 afterwards
};

TEST_F(乘方开方, 乘方的精确结果与计数) {
    const 精确例 例[] = {
        {"2", "10", "D:1024", 28, 0},
        {"2", "1", "D:2", 28, 0},
        {"0", "0", "D:1", 29, 0},                  // b = 0 wins, also over a zero base
        {"abc", "0", "D:1", 29, 0},                // ... before the base is even read
        {"0", "5", "D:0", 29, 0},                  // zero base: no iteration, digits kept
        {"2", "-2", "D:0.25", 28, 0},
        {"-2", "3", "D:-8", 28, 0},
        {"-2", "4", "D:16", 28, 0},
        {"-1.5", "3", "D:-3.375", 28, 0},
        {"-2", "-3", "D:-0.125", 28, 0},
        {"4", "-0.5", "D:0.5", 28, 0},
        {"16", "0.5", "D:4", 28, 0},
        {"1.5", "2", "D:2.25", 28, 0},
        {"0.1", "3", "D:0.001", 28, 0},
        {"10", "28", "D:10000000000000000000000000000", 28, 0},
        {"3", "13", "D:1594323", 28, 0},
        {"7", "25", "D:1341068619663964900807", 28, 0},   // 7^25, exact integer
        {"0.5", "-90", "D:1237940039285380274899124224", 28, 0},  // 2^90 exactly
        {"-3", "-3", "D:-0.037037037037037037037037037", 28, 0},  // -1/27 to 28 places
        {" 2 ", " 3 ", "D:8", 28, 0},
        {"1.5E+1", "2", "D:225", 28, 0},
        // Results a decimal cannot carry go to double and cost the digits.
        {"10", "30", "F:1E+30", 15, 2},            // probe reading falls, then the double tier
        {"2", "96", "F:7.92281625142643E+28", 15, 2},
        {"10", "-30", "F:1E-30", 15, 2},
        {"1E+20", "2", "F:1E+40", 15, 2},          // the decimal product would overflow
    };
    for (const auto& e : 例) {
        清除计算状态();
        const 数值 r = 乘方(T(e.x), T(e.y));
        EXPECT_EQ(述(r), e.结果) << e.x << "^" << e.y;
        EXPECT_EQ(公共.可达有效位数, e.位数) << e.x << "^" << e.y;
        EXPECT_EQ(公共.精度损失数, e.损失) << e.x << "^" << e.y;
        EXPECT_EQ(公共.错误数, 0) << e.x << "^" << e.y << S(公共.错误记录);
    }
}

// ---- 乘方: iterated results against independent values ---------------------

struct 近似例 {
    const char* x;
    const char* y;
    const char* 真值;   // 40-digit value, independently computed
    double 容差;
};

TEST_F(乘方开方, 乘方的迭代结果保住二十七位以上) {
    const 近似例 例[] = {
        {"2", "0.5", "1.414213562373095048801688724209698078570", 1E-27},
        {"2", "0.3", "1.231144413344916284499393069167743109876", 1E-26},
        {"3", "2.5", "15.58845726811989564174701707355285130249", 1E-25},
        {"10", "-0.25", "0.5623413251903490803949510397764812314683", 1E-26},
        {"2", "-0.75", "0.5946035575013605333587499852802379576465", 1E-26},
        {"12.5", "1.5", "44.1941738241592202750527726315530649553", 1E-25},
        {"1.1", "100", "13780.61233982227018411833717208963677626", 1E-22},
        {"7", "-3", "0.00291545189504373177842565597667638483965", 1E-28},
        {"0.97", "-200", "442.2350362387365497676442432622506010996", 1E-23},
        {"0.03", "-6.3", "3927679981.89705964930368568553", 1E-17},
        // Twenty squarings double the first rounding error twenty times over:
        // about 24 digits stand.
        {"1.0000001", "1000000", "1.105170912549793416638382709346716159349", 1E-23},
    };
    for (const auto& e : 例) {
        清除计算状态();
        const 数值 r = 乘方(T(e.x), T(e.y));
        EXPECT_TRUE(接近(r, e.真值, e.容差)) << e.x << "^" << e.y;
        EXPECT_EQ(公共.可达有效位数, 28) << e.x << "^" << e.y;
        EXPECT_EQ(公共.精度损失数, 0) << e.x << "^" << e.y;
    }
}

// An exponent just below a power of two makes the doubling creep one step
// a round; such a power must still come back at once and right.
TEST_F(乘方开方, 乘方的大指数不会卡住) {
    const auto 始 = std::chrono::steady_clock::now();
    const 数值 r = 乘方(T("1.000000000000001"), T("1099511627773"));  // 2^40 - 3
    const double 秒 = std::chrono::duration<double>(std::chrono::steady_clock::now() - 始).count();
    EXPECT_LT(秒, 10.0);
    // Forty squarings: the first rounding error grows by 2^40, some 17
    // digits stand, as many as a double would give.
    EXPECT_TRUE(接近(r, "1.001100116312281712056523948703503989831", 1E-16));
    EXPECT_EQ(公共.错误数, 0);
}

// ---- 乘方: failures and the double tier -----------------------------------

struct 失败例 {
    const char* x;
    const char* y;
    const char* 首个错误;
};

TEST_F(乘方开方, 乘方失败给一并报告) {
    const 失败例 例[] = {
        {"0", "-1", "0^-1 乘方计算超出本程序计算范围！返回 [1] 。"},
        {"-8", "0.5", "  进行[开平方]运算时， -8 数值超出计算范围！返回数值用 [1] 表示。"},
        {"-8", "-0.5", "  进行[开平方]运算时， -8 数值超出计算范围！返回数值用 [1] 表示。"},
        {"-8", "0.25", "-8^0.25 乘方计算超出本程序计算范围！返回 [1] 。"},
        {"-2", "1.5", "-2^1.5 乘方计算超出本程序计算范围！返回 [1] 。"},
        {" 10 ", "400", "10^400 乘方计算超出本程序计算范围！返回 [1] 。"},
        {"1E+300", "2", "1E+300^2 乘方计算超出本程序计算范围！返回 [1] 。"},
    };
    for (const auto& e : 例) {
        清除计算状态();
        const 数值 r = 乘方(T(e.x), T(e.y));
        EXPECT_EQ(述(r), "T:1") << e.x << "^" << e.y;
        EXPECT_EQ(公共.错误数, 1) << e.x << "^" << e.y << S(公共.错误记录);
        EXPECT_EQ(S(公共.首个错误), e.首个错误);
    }
}

TEST_F(乘方开方, 高精度关闭时乘方开方走双精度) {
    公共.高精度开关 = false;
    for (const 数值& r : {乘方(T("2"), T("0.5")), 开平方(T("2"))}) {
        ASSERT_TRUE(r.是双精度()) << 述(r);
        EXPECT_DOUBLE_EQ(r.双精度值(), std::sqrt(2.0));
    }
    EXPECT_EQ(公共.可达有效位数, 15);
    EXPECT_GE(公共.精度损失数, 2);
    EXPECT_EQ(公共.错误数, 0);
    EXPECT_EQ(述(开平方(T("-4"))), "T:1");
    EXPECT_EQ(公共.错误数, 1);
}

TEST_F(乘方开方, 二十八位规则只降不升) {
    // After a step in double, a decimal power must not claim 28 digits.
    公共.可达有效位数 = 15;
    EXPECT_EQ(述(乘方(T("2"), T("3"))), "D:8");
    EXPECT_EQ(公共.可达有效位数, 15);
    // A square root lowers 29 to 28 but never raises anything.
    清除计算状态();
    开平方(T("2"));
    EXPECT_EQ(公共.可达有效位数, 28);
    公共.可达有效位数 = 15;
    开平方(T("3"));
    EXPECT_EQ(公共.可达有效位数, 15);
}

// ---- 开平方 ------------------------------------------------------------------

struct 开方例 {
    const char* x;
    const char* 结果;  // exact result, or "" to compare with 真值
    const char* 真值;
    int 位数;
};

TEST_F(乘方开方, 开平方的精确与迭代) {
    const 开方例 例[] = {
        {"16", "D:4", "", 29},                 // perfect square: no iteration
        {"0", "D:0", "", 29},
        {"", "D:0", "", 29},                   // a blank reads as zero
        {"1.44", "D:1.2", "", 29},
        {"0.0625", "D:0.25", "", 29},
        {"1E+28", "D:100000000000000", "", 29},
        {"2", "", "1.414213562373095048801688724209698078570", 28},
        {"10", "", "3.16227766016837933199889354443271853372", 28},
        {"0.5", "", "0.7071067811865475244008443621048490392848", 28},
        {"123456789.123", "", "11111.11106609055546434728617210443999098", 28},
        {"79228162514264337593543950335", "", "281474976710655.9999999999999982236431606", 28},
        // Tiny arguments: the root still fills the decimal's 28 places.
        {"0.000000000000000000000000001", "", "0.0000000000000316227766016837933199889", 28},
        {"0.0000000000000000002", "", "0.000000000447213595499957939281834733746", 28},
        {"0.0000000000000000000000000001", "D:0.00000000000001", "", 29},
    };
    for (const auto& e : 例) {
        清除计算状态();
        const 数值 r = 开平方(T(e.x));
        if (*e.结果) {
            EXPECT_EQ(述(r), e.结果) << e.x;
        } else {
            EXPECT_TRUE(接近(r, e.真值, 1E-27)) << e.x;
        }
        EXPECT_EQ(公共.可达有效位数, e.位数) << e.x;
        EXPECT_EQ(公共.错误数, 0) << e.x;
    }
}

TEST_F(乘方开方, 开平方负数与非数失败) {
    struct 例 { const char* x; const char* 消息; };
    const 例 表[] = {
        {"-1", "  进行[开平方]运算时， -1 数值超出计算范围！返回数值用 [1] 表示。"},
        {" -0.25 ", "  进行[开平方]运算时， -0.25 数值超出计算范围！返回数值用 [1] 表示。"},
        {"abc", "  进行[开平方]运算时， abc 数值超出计算范围！返回数值用 [1] 表示。"},
        {"1E+30", "  进行[开平方]运算时， 1E+30 数值超出计算范围！返回数值用 [1] 表示。"},
    };
    for (const auto& e : 表) {
        清除计算状态();
        EXPECT_EQ(述(开平方(T(e.x))), "T:1") << e.x;
        EXPECT_EQ(公共.错误数, 1) << e.x;
        EXPECT_EQ(S(公共.首个错误), e.消息);
    }
}

// ---- Logarithms ------------------------------------------------------------------

TEST_F(乘方开方, 对数走双精度并拒绝非正数) {
    struct 例 { bool 常用; const char* x; double 值; const char* 错误; };
    const 例 表[] = {
        {false, "1", 0.0, ""},
        {false, "2.718281828459045", 1.0, ""},
        {false, "10", 2.302585092994046, ""},
        {true, "1000", 3.0, ""},
        {true, "0.01", -2.0, ""},
        {true, "2", 0.3010299956639812, ""},
        {false, "0", 0, "ln(x)的x 小于等于0错误。"},
        {false, "-1", 0, "ln(x)的x 小于等于0错误。"},
        {true, "0", 0, "lg(x)的x 小于等于0错误。"},
        {true, "-5", 0, "lg(x)的x 小于等于0错误。"},
    };
    for (const auto& e : 表) {
        清除计算状态();
        const 数值 r = e.常用 ? 求常用对数(T(e.x)) : 求自然对数(T(e.x));
        if (*e.错误) {
            EXPECT_EQ(述(r), "T:1") << e.x;
            EXPECT_EQ(S(公共.首个错误), e.错误);
            EXPECT_EQ(公共.精度损失数, 0);
        } else {
            ASSERT_TRUE(r.是双精度()) << e.x << " " << 述(r);
            EXPECT_NEAR(r.双精度值(), e.值, 1E-14) << e.x;
            EXPECT_EQ(公共.精度损失数, 1) << e.x;
            EXPECT_EQ(公共.可达有效位数, 15) << e.x;
            EXPECT_EQ(公共.错误数, 0) << e.x;
        }
    }
}

}  // namespace
