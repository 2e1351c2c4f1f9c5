// Rounding on the digits of a number's text, the integer and fraction cuts,
// the scientific form, and the small text procedures and number formats.
#include "numeric/rounding.h"
#include "shell/state.h"
#include "numeric_test_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace {

using namespace 数值测试;

class 舍入 : public 状态复位 {};

struct 舍入例 {
    const char* x;
    int d;
    const char* 结果;
    int 损失;
};

TEST_F(舍入, 一位之后离零舍入) {
    const 舍入例 例[] = {
        {"1.235", 2, "D:1.24", 0},
        {"-1.235", 2, "D:-1.24", 0},
        {"1.2349999", 2, "D:1.23", 0},      // only the one digit behind the cut counts
        {"1.2350000001", 2, "D:1.24", 0},
        {"0.999", 2, "D:1", 0},             // the fraction rolls over
        {"-0.999", 2, "D:-1", 0},
        {"9.9999", 3, "D:10", 0},
        {"-9.9995", 3, "D:-10", 0},
        {"0.95", 1, "D:1", 0},
        {"0.005", 2, "D:0.01", 0},          // leading zero of the fraction put back
        {"0.0449", 2, "D:0.04", 0},
        {"0.045", 2, "D:0.05", 0},
        {"-0.05", 1, "D:-0.1", 0},          // "-0" keeps the sign
        {"-0.04", 1, "D:0", 0},
        {"2.5", 0, "D:3", 0},
        {"-2.5", 0, "D:-3", 0},
        {"3.5", 0, "D:4", 0},
        {"2.4", 0, "D:2", 0},
        {"-0.5", 0, "D:-1", 0},
        {"-0.4", 0, "D:0", 0},
        {"99.5", 0, "D:100", 0},
        {"5", 3, "D:5", 0},
        {"123.456", 5, "D:123.456", 0},
        {"1.5", 40, "D:1.5", 0},            // 40 is taken as 28
        {"1.25", -1, "D:1", 0},             // below 0 is taken as 0
        {"12345678901234567890.125", 2, "D:12345678901234567890.13", 0},
        {"0.12345678901234567890123456785", 28, "D:0.1234567890123456789012345678", 0},
        {"0.12345678901234567890123456785", 27, "D:0.123456789012345678901234568", 0},
        {"", 2, "D:0", 0},
        // Beyond the plain form: ties to even at most 15 places, own kind.
        {"1E+30", 2, "F:1E+30", 1},
        {"-2.5E+30", 3, "F:-2.5E+30", 1},
        {"1E-29", 2, "F:0", 1},
        {"-1E-29", 5, "F:0", 1},
    };
    for (const auto& e : 例) {
        清除计算状态();
        SCOPED_TRACE(std::string(e.x) + " to " + std::to_string(e.d));
        EXPECT_EQ(述(四舍五入(T(e.x), e.d)), e.结果);
        EXPECT_EQ(公共.精度损失数, e.损失);
        EXPECT_EQ(公共.错误数, 0);
    }
}

TEST_F(舍入, 双精度参数经十五位读入) {
    // 1.005 as a double lies below 1.005; read by its 15 digits it is 1.005,
    // and rounds the way a person rounds it.
    EXPECT_EQ(述(四舍五入(数值(1.005), 2)), "D:1.01");
    EXPECT_EQ(述(四舍五入(数值(2.675), 2)), "D:2.68");
    EXPECT_EQ(公共.精度损失数, 0);
}

TEST_F(舍入, 高精度关闭时双精度向偶舍入) {
    公共.高精度开关 = false;
    const 舍入例 例[] = {
        {"2.5", 0, "F:2", 2},   // conversion and rounding each count
        {"3.5", 0, "F:4", 2},
        {"-2.5", 0, "F:-2", 2},
        {"0.125", 2, "F:0.12", 2},
        {"0.375", 2, "F:0.38", 2},
        {"2.675", 2, "F:2.67", 2},   // the binary value lies below the tie
        {"-0.001", 2, "F:0", 2},     // no negative zero
        {"", 2, "F:0", 1},           // blank converts uncounted, the rounding counts
    };
    for (const auto& e : 例) {
        清除计算状态();
        SCOPED_TRACE(std::string(e.x) + " to " + std::to_string(e.d));
        EXPECT_EQ(述(四舍五入(T(e.x), e.d)), e.结果);
        EXPECT_EQ(公共.精度损失数, e.损失);
        EXPECT_EQ(公共.可达有效位数, 15);
    }
    const 数值 r = 四舍五入(T("1.2345678901234567"), 20);   // at most 15 places
    ASSERT_TRUE(r.是双精度());
    EXPECT_EQ(r.双精度值(), 1.234567890123457);
}

TEST_F(舍入, 失败给十进制零) {
    const 数值 r = 四舍五入(T("abc"), 2);
    EXPECT_EQ(述(r), "D:0");
    EXPECT_EQ(公共.错误数, 2);
    EXPECT_EQ(S(公共.错误提示), "进行[四舍五入]运算时，abc数值超出计算范围！返回 [0值] 。");
    EXPECT_EQ(S(公共.首个错误), "  进行[Hvt数转数]运算时， abc 数值超出计算范围！返回数值用[1]表示。");
}

TEST_F(舍入, 整数部分与小数部分) {
    struct 例 { const char* x; const char* 整; const char* 小; int 损失; } 表[] = {
        {"-0.5", "-0", "5", 0},
        {"7", "7", "0", 0},
        {"7.9", "7", "9", 0},
        {"-7.9", "-7", "9", 0},
        {"1.05", "1", "05", 0},
        {"0.5", "0", "5", 0},
        {"", "0", "0", 0},
        {"  -12.000 ", "-12", "0", 0},
        {"12345678901234567890.5", "12345678901234567890", "5", 0},
        {"1E+30", "1E+30", "0", 1},
        {"-1E+30", "-1E+30", "0", 1},
        {"1E-30", "0", "1E-30", 1},
        {"-1E-30", "-0", "-1E-30", 1},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(e.x);
        清除计算状态();
        EXPECT_EQ(S(取数值的整数部分(T(e.x))), e.整);
        EXPECT_EQ(公共.精度损失数, e.损失);
        清除计算状态();
        EXPECT_EQ(S(取数值的小数部分(T(e.x))), e.小);
        EXPECT_EQ(公共.精度损失数, e.损失);
        EXPECT_EQ(公共.错误数, 0);
    }
}

TEST_F(舍入, 整数部分与小数部分的失败) {
    EXPECT_EQ(S(取数值的整数部分(T(" x1 "))), "0");
    EXPECT_EQ(S(公共.错误提示), "进行[取数值的整数部分]运算时，x1数值超出计算范围！返回数值 0 。");
    EXPECT_EQ(S(取数值的小数部分(T("x2"))), "0");
    EXPECT_EQ(S(公共.错误提示), "进行[取数值的小数部分]运算时，x2数值超出计算范围！返回数值 0 。");
    EXPECT_EQ(公共.错误数, 4);
}

TEST_F(舍入, 科学计数形式) {
    struct 例 { 数值 x; const char* 结果; } 表[] = {
        {T("0"), "0E+0"},
        {T(""), "0E+0"},
        {T("-0.000"), "0E+0"},
        {T("1234.5"), "1.2345E+3"},
        {T("-1234.5"), "-1.2345E+3"},
        {T("0.00123"), "1.23E-3"},
        {T("-0.00123"), "-1.23E-3"},
        {T("1.5"), "1.5E0"},
        {T("5"), "5E0"},
        {T("100"), "1.00E+2"},
        {T("1E+30"), "1E+30"},
        {T("12345678901234567890.123"), "1.2345678901234567890123E+19"},   // a decimal keeps its digits
        {数值(1.0 / 3.0), "3.33333333333333E-1"},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(e.结果);
        EXPECT_EQ(S(科学计数形式(e.x)), e.结果);
    }
    EXPECT_EQ(公共.错误数, 0);
    EXPECT_EQ(公共.精度损失数, 0);   // reading the text is no calculation step
    EXPECT_EQ(S(科学计数形式(T("abc"))), "0E+0");
    EXPECT_EQ(公共.错误数, 1);
    EXPECT_EQ(S(公共.错误提示), "进行[科学计数形式]运算时，abc数值超出计算范围！返回数值 0E+0 。");
}

// Half away from zero on the one digit behind the cut is, for a decimal,
// the same as rounding half away from zero on the whole discarded part:
// cross-check the text-digit procedure against the decimal's own rounding
// over many random decimals of every length and scale.
TEST_F(舍入, 与十进制舍入一致) {
    std::mt19937_64 rng(20261123);
    for (int n = 0; n < 20000; ++n) {
        const int 位数 = 1 + static_cast<int>(rng() % 28);
        QString 数字;
        for (int i = 0; i < 位数; ++i) 数字 += QChar(u'0' + static_cast<char16_t>(rng() % 10));
        const int 点 = static_cast<int>(rng() % (位数 + 1));
        QString t = 数字.left(位数 - 点) + (点 > 0 ? QStringLiteral(".") + 数字.right(点) : QString());
        if (t.startsWith(u'.')) t.prepend(u'0');
        if (rng() % 2) t.prepend(u'-');
        const int d = static_cast<int>(rng() % 30);
        Decimal96 v;
        ASSERT_EQ(Decimal96::fromText(t, v), Decimal96::Status::Ok) << S(t);
        const 数值 r = 四舍五入(数值(t), d);
        ASSERT_TRUE(r.是十进制()) << S(t);
        EXPECT_EQ(Decimal96::compare(r.十进制值(), v.rounded(std::min(d, 28), Decimal96::Rounding::HalfAwayFromZero)), 0)
            << S(t) << " to " << d << " gave " << S(r.文本());
        // The integer part is the truncation, with "-0" for a negative fraction.
        const Decimal96 截 = v.rounded(0, Decimal96::Rounding::TowardZero);
        const QString 整 = 取数值的整数部分(数值(t));
        const bool 负分数 = v.negative() && 截.isZero() && !v.isZero();
        EXPECT_EQ(S(整), 负分数 ? std::string("-0") : S(截.toText())) << S(t);
    }
    EXPECT_EQ(公共.错误数, 0);
    EXPECT_EQ(公共.精度损失数, 0);
}

TEST(数字文本, 去负号) {
    struct 例 { 数值 x; const char* 结果; } 表[] = {
        {T("-5"), "5"},
        {T(" -5 "), "5"},
        {T("5"), "5"},
        {T("--5"), "-5"},
        {T(""), ""},
        {数值(Decimal96::fromParts(15, 0, 0, true, 1)), "1.5"},
        {数值(-2.5e-20), "2.5E-20"},
    };
    for (const auto& e : 表) EXPECT_EQ(S(去负号(e.x)), e.结果);
}

TEST(数字文本, 显示宽度) {
    struct 例 { const char* t; int 宽; } 表[] = {
        {"", 0},
        {"abc 1.5", 7},
        {"中文", 4},
        {"a中b", 4},
        {"45°30′", 8},
        {"ＸＹ", 4},
        {"约数：", 6},
        {"\xF0\x9F\x98\x80", 2},   // one emoji, a surrogate pair
        {"\t", 1},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(e.t);
        EXPECT_EQ(显示宽度(QString::fromUtf8(e.t)), e.宽);
    }
}

TEST(数字文本, 格式化数值) {
    struct 例 { 数值 x; const char* 格式; const char* 结果; } 表[] = {
        {数值(1234.5678), "0000000.000", "0001234.568"},
        {数值(-1234.5678), "0000000.000", "-0001234.568"},
        {数值(3456789.1235), "0000000.000", "3456789.124"},   // 15 digits first, then half away
        {数值(12345678.9), "0000000.000", "12345678.900"},   // more digits than placeholders
        {数值(38512345.6785), "00000000.000", "38512345.679"},
        {数值(12.0005), "###0.000", "12.001"},
        {数值(0.0004), "###0.000", "0.000"},
        {数值(-0.0004), "###0.000", "0.000"},                // no "-" on a zero
        {数值(45.5), "00.00000000", "45.50000000"},
        {数值(5.0), "#.##", "5"},
        {数值(1.5), "0.0#", "1.5"},
        {数值(1.556), "0.0#", "1.56"},
        {数值(2.0), "0.0#", "2.0"},
        {数值(0.5), "#.00", ".50"},
        {数值(2.5), "0", "3"},
        {数值(-2.5), "0", "-3"},
        {数值(1234567.891), "#,##0.00", "1,234,567.89"},
        {数值(5.0), "X=0.0m", "X=5.0m"},
        {数值(1e30), "0.000", "1000000000000000000000000000000.000"},
        {数值(-1.5e29), "#", "-150000000000000000000000000000"},
        {T("12.3456"), "00.00", "12.35"},
        {T("0.12345678901234567890123456785"), "0.000", "0.123"},
        {T("abc"), "0.00", "0.00"},
        {数值(), "000", "000"},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(e.格式);
        EXPECT_EQ(S(格式化数值(e.x, QString::fromUtf8(e.格式))), e.结果);
    }
    EXPECT_EQ(S(格式化数值(1234.5678, QStringLiteral("0.0"))), "1234.6");
}

}  // namespace
