// The short roads of the decimal and the powers against the long ones they
// stand for: each pair must agree digit for digit, on random operands that
// reach the edges of each short road (near-halfway quotients, ties at the
// 15th digit, scales 0..28, both signs).
#include "numeric/decimal.h"
#include "numeric/powers.h"
#include "numeric_test_support.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

namespace {

using namespace 数值测试;
using u128 = unsigned __int128;

Decimal96 随机十进制(std::mt19937_64& g) {
    u128 m = (u128(g()) << 64) | g();
    m &= (u128(1) << 96) - 1;
    const int bits = static_cast<int>(g() % 97);
    if (bits < 96) m >>= 96 - bits;
    return Decimal96::fromParts(static_cast<std::uint32_t>(m), static_cast<std::uint32_t>(m >> 32),
                                static_cast<std::uint32_t>(m >> 64), (g() & 1) != 0, static_cast<int>(g() % 29));
}

// The decimal's value to double must be the correctly rounded one, as the
// C library reads the decimal's own text.
TEST(短路, 转双精度与文本读数一致) {
    std::mt19937_64 g(1);
    for (int i = 0; i < 60000; ++i) {
        const Decimal96 d = 随机十进制(g);
        const QByteArray t = d.toText().toLatin1();
        ASSERT_EQ(d.toDouble(), std::strtod(t.constData(), nullptr)) << t.constData();
    }
    // Values a hair off the midpoint between two doubles.
    for (int i = 0; i < 40000; ++i) {
        const double a = std::ldexp(static_cast<double>(g() >> 11), static_cast<int>(g() % 100) - 120);
        if (a < 1e-20 || a > 7e28) continue;
        const long double mid = (static_cast<long double>(a) + std::nextafter(a, 1e300)) / 2;
        char buf[80];
        std::snprintf(buf, sizeof buf, "%.28Lf", mid);
        Decimal96 d;
        if (Decimal96::fromText(QString::fromLatin1(buf), d) != Decimal96::Status::Ok) continue;
        const QByteArray t = d.toText().toLatin1();
        ASSERT_EQ(d.toDouble(), std::strtod(t.constData(), nullptr)) << t.constData();
    }
}

// A double to decimal is its 15 significant digits, correctly rounded (ties
// to even), read as decimal text: printf's %.14e is the reference.
TEST(短路, 双精度转十进制为十五位) {
    std::mt19937_64 g(2);
    for (int i = 0; i < 60000; ++i) {
        double a;
        switch (i % 3) {
        case 0: a = std::ldexp(static_cast<double>(g() >> 11), static_cast<int>(g() % 190) - 150); break;
        case 1: a = std::sqrt(static_cast<double>(g() % 100000000) / 1e4); break;
        default: a = static_cast<double>(g() % 10000000000000000ULL) / std::pow(10.0, static_cast<int>(g() % 30));
        }
        if (!(a >= 1e-29 && a < 7.9e28)) continue;
        if (g() & 1) a = -a;
        Decimal96 got, want;
        ASSERT_EQ(Decimal96::fromDouble(a, got), Decimal96::Status::Ok);
        char buf[40];
        std::snprintf(buf, sizeof buf, "%.14e", a);
        ASSERT_EQ(Decimal96::fromText(QString::fromLatin1(buf), want), Decimal96::Status::Ok);
        ASSERT_TRUE(got == want) << buf << " got " << S(got.toText());
        // The 15 digits carry no scale of their own (trailing zeros go), but
        // digits past the 28th place are cut there.
        const char* e = std::strchr(buf, 'e');
        int 尾 = static_cast<int>(e - buf) - 1;   // "d.dddd": the last digit's place after the point
        while (尾 > 1 && buf[尾] == '0') --尾;
        const int 位 = (尾 - 1) - std::atoi(e + 1);
        ASSERT_EQ(got.scale(), 位 > 28 ? 28 : want.normalized().scale()) << buf;
    }
}

// Halving and the comparisons in place against their general forms: 0.5
// written as 0.50 takes the general product, and compare() is the rule.
TEST(短路, 折半与同位比较) {
    std::mt19937_64 g(3);
    const Decimal96 半 = Decimal96::fromParts(5, 0, 0, false, 1);
    const Decimal96 半长 = Decimal96::fromParts(50, 0, 0, false, 2);
    for (int i = 0; i < 60000; ++i) {
        const Decimal96 a = 随机十进制(g);
        Decimal96 x, y, z;
        ASSERT_EQ(Decimal96::mul(a, 半, x), Decimal96::Status::Ok);
        ASSERT_EQ(Decimal96::mul(半长, a, y), Decimal96::Status::Ok);
        ASSERT_EQ(Decimal96::mul(半, a, z), Decimal96::Status::Ok);
        ASSERT_EQ(Decimal96::compare(x, y), 0) << S(a.toText());
        ASSERT_TRUE(x == z);

        Decimal96 b = 随机十进制(g);
        if (g() & 1) b = Decimal96::fromParts(b.lo(), b.mid(), b.hi(), b.negative(), a.scale());
        ASSERT_EQ(a == b, Decimal96::compare(a, b) == 0);
        ASSERT_EQ(a < b, Decimal96::compare(a, b) < 0);
    }
    const Decimal96 负零 = Decimal96::fromParts(0, 0, 0, true, 3), 零 = Decimal96::fromParts(0, 0, 0, false, 3);
    EXPECT_TRUE(负零 == 零);
    EXPECT_FALSE(负零 < 零);
}

// A power of e and its reciprocal share one product: e^-y after e^y must be
// what e^-y is when taken alone, reachable digits included.
class e幂 : public 状态复位 {};
TEST_F(e幂, 倒数与单独计算一致) {
    const 数值 e = T("2.7182818284590452353602874714");
    for (const char* y : {"2.5", "0.0123", "13.75", "1.234"}) {
        const std::string 负 = std::string("-") + y;
        乘方(e, T("1.1"));  // something else last
        清除计算状态();
        const std::string 单独 = 述(乘方(e, T(负.c_str())));
        const int 单独位数 = 计算状态.可达有效位数;
        清除计算状态();
        const std::string 正 = 述(乘方(e, T(y)));
        清除计算状态();
        const 数值 后算 = 乘方(e, T(负.c_str()));
        EXPECT_EQ(述(后算), 单独) << y;
        EXPECT_EQ(计算状态.可达有效位数, 单独位数) << y;
        // And each is the power it names: e^y · e^-y = 1.
        double 正值 = 0, 负值 = 0;
        ASSERT_TRUE(转双精度(乘方(e, T(y)), 正值) && 转双精度(后算, 负值));
        EXPECT_NEAR(正值 / std::exp(std::atof(y)), 1.0, 1e-13) << y;
        EXPECT_NEAR(正值 * 负值, 1.0, 1e-13) << y;
        EXPECT_NE(正, 单独);
    }
}

}  // namespace
