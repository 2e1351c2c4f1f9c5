// The guarded arithmetic and the rounding on the digits of a number's text:
// conversion, inspectors, the four operations with their tiers, counters
// and exact messages, Double和, the plain tagged arithmetic under them, and
// the integer and fraction cuts, the scientific form and the number formats;
// and hostile text fed to every text-taking procedure of the numeric core.
#include "numeric/numeric.h"
#include "tests/support/recording.h"
#include "numeric/state.h"
#include "numeric_test_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace 数值测试;

class 守护 : public 状态复位 {};

const std::string k转换失败 = "  进行[Hvt数转数]运算时， abc 数值超出计算范围！返回数值用[1]表示。";

// ---- Hvt数转数 --------------------------------------------------------------

TEST_F(守护, 数转数按界限与位数决定类型) {
    const struct { 数值 输入; const char* 结果; int 损失, 错误; } 例[] = {
        {T(""), "D:0", 0, 0}, {T(" 12.50 "), "D:12.5", 0, 0}, {T("1.5E+3"), "D:1500", 0, 0},
        {T("1.2345678901234567890123456789"), "D:1.2345678901234567890123456789", 0, 0},
        {T("-79228162514264337593543950335"), "F:-7.92281625142643E+28", 1, 0},
        {T("7.9228162514264E+28"), "D:79228162514264000000000000000", 0, 0},
        {T("7.92281625142642E+28"), "F:7.92281625142642E+28", 1, 0},     // upper bound is open
        {T("-7.92281625142642E+28"), "F:-7.92281625142642E+28", 1, 0},
        {T("1E-28"), "D:0.0000000000000000000000000001", 0, 0},            // lower bound is closed
        {T("-1E-28"), "D:-0.0000000000000000000000000001", 0, 0}, {T("1E-29"), "F:1E-29", 1, 0},
        {T("0.00000000000000000000000000012345"), "F:1.2345E-28", 1, 0},   // decimal keeps 1 digit of 5
        {T("0.0000000000000000000000000002"), "D:0.0000000000000000000000000002", 0, 0},
        {T("1e-999999"), "D:0", 0, 0}, {T("abc"), "T:1", 0, 1}, {T("1e999999"), "T:1", 0, 1}, {数值(), "D:0", 0, 0},
        {数值(7), "D:7", 0, 0},
        {数值(0.1), "D:0.1", 0, 0},                     // 15-digit rule, not the binary value
        {数值(-2.5e-30), "F:-2.5E-30", 1, 0},
    };
    for (const auto& e : 例) {
        清除计算状态();
        SCOPED_TRACE(述(e.输入));
        EXPECT_EQ(述(Hvt数转数(e.输入)), e.结果);
        EXPECT_EQ(计算状态.精度损失数, e.损失);
        EXPECT_EQ(计算状态.可达有效位数, e.损失 > 0 ? 15 : 29);
        EXPECT_EQ(计算状态.错误数, e.错误);
    }
}

// ---- Inspectors -----------------------------------------------------------------

TEST_F(守护, 检查器) {
    const struct { const char* 输入; int 有效, 全部, 减号, 点号, E; } 表[] = {
        {"0.00120", 3, 6, 0, 1, 0},  {"1.50E+3", 3, 3, 0, 1, 5},    {"007", 1, 3, 0, 0, 0},
        {"-1E-5", 1, 1, 1, 0, 3},    {"12e5", 2, 2, 0, 0, 3},       {"  +12 34  ", 4, 4, 0, 0, 0},
        {"12a34", 2, 2, 0, 0, 0},    {"--1.2.3E.4-", 3, 3, 2, 2, 8},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(e.输入);
        EXPECT_EQ(判断数的有效字符长度(T(e.输入)), e.有效);
        EXPECT_EQ(判断数的有效019字符长度(T(e.输入)), e.全部);
        EXPECT_EQ(Hvt减号数(T(e.输入)), e.减号);
        EXPECT_EQ(Hvt点号数(T(e.输入)), e.点号);
        EXPECT_EQ(HvtE位置(T(e.输入)), e.E);
    }
    EXPECT_EQ(判断数的有效字符长度(数值(1.0 / 3.0)), 15);   // values are read through their text
    EXPECT_EQ(HvtE位置(数值(1e20)), 2);
    EXPECT_EQ(计算状态.错误数, 0);
    // A value without any digit text fails each with its own words.
    const 数值 nan(std::numeric_limits<double>::quiet_NaN());
    for (int r : {判断数的有效字符长度(nan), 判断数的有效019字符长度(nan), Hvt减号数(nan), Hvt点号数(nan), HvtE位置(nan)})
        EXPECT_EQ(r, -1);
    EXPECT_EQ(S(Hvt有效长度(数值(-std::numeric_limits<double>::infinity()), 3)), "-1");
    EXPECT_EQ(S(计算状态.错误记录), "进行[判断数的有效字符长度]运算时， NaN 出现错误！\r\n"
                                "进行[判断数的有效019字符长度]运算时， NaN 出现错误！\r\n"
                                "进行[Hvt减号数]运算时， NaN 出现错误！\r\n"
                                "进行[Hvt点号数]运算时， NaN 出现错误！\r\n"
                                "进行[HvtE位置]运算时，NaN 数值超出范围！返回数值用 -1 表示。\r\n"
                                "进行[Hvt有效长度]运算时，-Infinity数值超出计算范围！返回数值 -1。\r\n");
}

TEST_F(守护, 有效长度只截不舍且不截整数) {
    const struct { const char* 输入; int n; const char* 结果; } 表[] = {
        {"1234567", 3, "1234567"}, {"1234.5678", 3, "1234.5"}, {"0.001299", 2, "0.0012"},   // cut, never rounded
        {"1.23456E+05", 3, "1.23E+05"}, {" 9.87654 ", 1, "9.8"}, {"100.001", 4, "100.0"}, {"1.5", 10, "1.5"},
    };
    for (const auto& e : 表) EXPECT_EQ(S(Hvt有效长度(T(e.输入), e.n)), e.结果) << e.输入;
    EXPECT_EQ(计算状态.错误数, 0);
}

// ---- The guarded operations ----------------------------------------------

enum class 运 { 积, 商, 和, 差, 余 };

数值 算(运 op, const 数值& x, const 数值& y) {
    switch (op) {
    case 运::积: return 求两数积(x, y);
    case 运::商: return 求两数商(x, y);
    case 运::和: return 求两数和(x, y);
    case 运::差: return 求两数差(x, y);
    case 运::余: return 求两数余(x, y);
    }
    return 数值();
}

TEST_F(守护, 三层运算) {
    const char* 尾 = " 数值超出计算范围！返回数值用 [1] 表示。";
    const struct { 运 op; 数值 x, y; const char* 结果; int 损失, 错误; std::string 末消息; } 例[] = {
        // Decimal tier.
        {运::积, T("-3"), T("0.5"), "D:-1.5", 0, 0, ""},
        {运::积, T("0.00000000000001"), T("0.00000000000001"), "D:0.0000000000000000000000000001", 0, 0, ""},
        {运::积, T(""), T("5"), "D:0", 0, 0, ""},
        {运::商, T("1"), T("3"), "D:0.3333333333333333333333333333", 0, 0, ""},
        {运::商, T("-1"), T("8"), "D:-0.125", 0, 0, ""}, {运::和, T("0.1"), T("0.2"), "D:0.3", 0, 0, ""},
        {运::和, T("1E-28"), T("-1E-28"), "D:0", 0, 0, ""},          // no underflow test on sums
        {运::差, T(" 5 "), T("   "), "D:5", 0, 0, ""},
        {运::和, 数值(0.1), 数值(0.2), "D:0.3", 0, 0, ""},           // doubles read by their 15 digits
        // Double tier: the decimal overflows or underflows.
        {运::积, T("1E+20"), T("1E+20"), "F:1E+40", 1, 0, ""}, {运::积, T("1E-15"), T("1E-15"), "F:1E-30", 1, 0, ""},
        {运::商, T("1E-20"), T("1E+20"), "F:1E-40", 1, 0, ""},
        {运::和, T("50000000000000000000000000000"), T("50000000000000000000000000000"), "F:1E+29", 1, 0, ""},
        // An operand beyond the decimal: its conversion counts, and so does the fall.
        {运::积, T("1E+30"), T("2"), "F:2E+30", 2, 0, ""}, {运::积, T("2"), T("1E+30"), "F:2E+30", 2, 0, ""},
        {运::积, T("1E+30"), T("1E+30"), "F:1E+60", 2, 0, ""},      // y is never converted once x has an E
        // Failure tier.
        {运::商, T(" 1 "), T("0"), "T:1", 0, 1, std::string("  进行[求两数商]运算时， 1/0") + 尾},
        {运::积, T("1E+300"), T("1E+300"), "T:1", 1, 1, std::string("  进行[求两数积]运算时， 1E+300*1E+300") + 尾},
        {运::和, T("1E+308"), T("1E+308"), "T:1", 1, 1, std::string("  进行[求两数和]运算时， 1E+308+1E+308") + 尾},
        {运::差, T("-1E+308"), T("1E+308"), "T:1", 1, 1, std::string("  进行[求两数差]运算时， -1E+308-1E+308") + 尾},
        {运::积, T("abc"), T("2"), "T:1", 0, 2, std::string("  进行[求两数积]运算时， abc*2") + 尾},
        {运::积, 数值(1e200), 数值(1e200), "T:1", 1, 1, std::string("  进行[求两数积]运算时， 1E+200*1E+200") + 尾},
        // Remainders take the sign of the dividend.
        {运::余, T("7"), T("3"), "D:1", 0, 0, ""}, {运::余, T("-7"), T("3"), "D:-1", 0, 0, ""},
        {运::余, T("7"), T("-3"), "D:1", 0, 0, ""}, {运::余, T("7.5"), T("2"), "D:1.5", 0, 0, ""},
        {运::余, T("-0.5"), T("3"), "D:-0.5", 0, 0, ""}, {运::余, T("10"), T("0.3"), "D:0.1", 0, 0, ""},
        {运::余, T("7"), T("0"), "T:1", 0, 2, std::string("  进行[求两数余]运算时， 7余0") + 尾},
    };
    for (const auto& e : 例) {
        清除计算状态();
        SCOPED_TRACE(述(e.x) + " op" + std::to_string(int(e.op)) + " " + 述(e.y));
        EXPECT_EQ(述(算(e.op, e.x, e.y)), e.结果);
        EXPECT_EQ(计算状态.精度损失数, e.损失);
        EXPECT_EQ(计算状态.可达有效位数, e.损失 > 0 ? 15 : 29);
        EXPECT_EQ(计算状态.错误数, e.错误);
        EXPECT_EQ(S(计算状态.错误提示), e.末消息);
    }
    // With the switch off the conversions fall (counted), but the result is
    // recomputed from the operands themselves as decimals.
    清除计算状态();
    计算状态.高精度开关 = false;
    EXPECT_EQ(述(求两数和(T("0.1"), T("0.2"))), "D:0.3");
    EXPECT_EQ(计算状态.精度损失数, 2);
}

TEST_F(守护, Double和去掉二进制噪声) {
    EXPECT_EQ(Double和(0.1, 0.2), 0.3);                      // plain double: 0.30000000000000004
    EXPECT_EQ(Double和(1.0 / 3.0, 0.0), 0.333333333333333);  // 15 digits each
    EXPECT_EQ(Double和(1e300, 1e300), 2e300);                // beyond the decimal: plain sum
    EXPECT_EQ(计算状态.错误数, 0);
    EXPECT_EQ(计算状态.精度损失数, 0);
    EXPECT_EQ(Double和(1e308, 1e308), 1.0);
    EXPECT_EQ(S(计算状态.错误提示), "进行[Double和]运算时，[1E+308 + 1E+308]出现错误！");
    EXPECT_EQ(Double和(std::numeric_limits<double>::quiet_NaN(), 1.0), 1.0);
    EXPECT_EQ(S(计算状态.错误提示), "进行[Double和]运算时，[NaN + 1]出现错误！");
    EXPECT_EQ(计算状态.精度损失数, 0);
}

// ---- Plain tagged arithmetic -------------------------------------------------------

TEST(数值运算, 类型规则比较与符号) {
    const Decimal96 d15 = Decimal96::fromParts(15, 0, 0, false, 1);   // 1.5
    const struct { 数值 a; 运算符 op; 数值 b; bool 成; const char* 结果; } 表[] = {
        {数值(Decimal96::fromParts(1, 0, 0, false, 1)), 运算符::加, 数值(0.2), true, "D:0.3"},
        {数值(2), 运算符::乘, 数值(0.5), true, "F:1"}, {数值(2), 运算符::乘, 数值(d15), true, "D:3"},
        {T("1.5"), 运算符::加, T("1"), true, "D:2.5"}, {T("0.5"), 运算符::减, 数值(0.25), true, "F:0.25"},
        {数值(0.1), 运算符::加, 数值(0.2), true, "F:0.3"}, {数值(), 运算符::乘, 数值(), true, "D:0"},
        {数值(d15), 运算符::加, 数值(1e30), false, ""},       // the double does not convert
        {数值(1e308), 运算符::乘, 数值(10.0), false, ""}, {数值(0.0), 运算符::除, 数值(0.0), false, ""},
        {数值(d15), 运算符::除, 数值(0), false, ""}, {数值(1), 运算符::加, T("1x"), false, ""},
        {T("abc"), 运算符::加, 数值(1), false, ""},
        {数值(std::numeric_limits<double>::infinity()), 运算符::减, 数值(1.0), false, ""},
    };
    for (const auto& e : 表) {
        数值 r(QStringLiteral("untouched"));
        EXPECT_EQ(数值运算(e.a, e.op, e.b, r), e.成) << e.结果;
        EXPECT_EQ(述(r), e.成 ? std::string(e.结果) : std::string("T:untouched"));
    }
    const struct { 数值 a, b; bool 成; int 结果; } 比[] = {
        {T("B"), T("a"), true, -1}, {T("b"), T("B"), true, 1},   // code units, case sensitive
        {T("10"), T("9"), true, -1},         // two texts compare as text
        {T("10"), 数值(9), true, 1},         // a text against a number compares as a number
        {数值(Decimal96::fromParts(1, 0, 0, false, 1)), 数值(0.1), true, 0},
        {数值(Decimal96::fromInt64(5)), 数值(-1e30), true, 1}, {数值(1e30), 数值(Decimal96::fromInt64(5)), true, 1},
        {数值(2.5), 数值(2.25), true, 1}, {数值(), 数值(0.0), true, 0}, {T("abc"), 数值(1), false, 0},
        {数值(Decimal96::fromParts(0, 0, 0, true, 3)), 数值(0), true, 0},   // -0 equals 0
        {数值(1.0), T("abc"), false, 0},
    };
    for (const auto& e : 比) {
        int r = 99;
        EXPECT_EQ(数值比较(e.a, e.b, r), e.成);
        if (e.成) { EXPECT_EQ(r, e.结果) << 述(e.a) << " vs " << 述(e.b); }
    }
    const struct { 数值 v; bool 零; int 号; } 号[] = {
        {数值(), true, 0}, {T("  "), false, 0}, {T("-0.000"), true, 0}, {T("1E-300"), false, 1},
        {T("-3"), false, -1}, {T("x"), false, 0}, {数值(-0.0), true, 0}, {数值(-7), false, -1},
    };
    for (const auto& e : 号) {
        EXPECT_EQ(是零(e.v), e.零) << 述(e.v);
        EXPECT_EQ(符号(e.v), e.号) << 述(e.v);
    }
}

// ---- Rounding and number text ---------------------------------------------------

TEST_F(守护, 四舍五入一位之后离零) {
    const struct { const char* x; int d; const char* 结果; int 损失; } 例[] = {
        {"1.235", 2, "D:1.24", 0}, {"-1.235", 2, "D:-1.24", 0},
        {"1.2349999", 2, "D:1.23", 0},      // only the one digit behind the cut counts
        {"0.999", 2, "D:1", 0},             // the fraction rolls over
        {"-0.999", 2, "D:-1", 0},
        {"0.005", 2, "D:0.01", 0},          // leading zero of the fraction put back
        {"-0.05", 1, "D:-0.1", 0},          // "-0" keeps the sign
        {"-0.04", 1, "D:0", 0}, {"2.5", 0, "D:3", 0}, {"-0.5", 0, "D:-1", 0}, {"5", 3, "D:5", 0},
        {"1.5", 40, "D:1.5", 0},            // 40 is taken as 28
        {"1.25", -1, "D:1", 0},             // below 0 is taken as 0
        {"0.12345678901234567890123456785", 27, "D:0.123456789012345678901234568", 0}, {"", 2, "D:0", 0},
        {"-2.5E+30", 3, "F:-2.5E+30", 1},   // beyond the plain form: own kind
        {"1E-29", 2, "F:0", 1},
    };
    for (const auto& e : 例) {
        清除计算状态();
        SCOPED_TRACE(std::string(e.x) + " to " + std::to_string(e.d));
        EXPECT_EQ(述(四舍五入(T(e.x), e.d)), e.结果);
        EXPECT_EQ(计算状态.精度损失数, e.损失);
        EXPECT_EQ(计算状态.错误数, 0);
    }
    // 1.005 as a double lies below 1.005; read by its 15 digits it rounds up.
    EXPECT_EQ(述(四舍五入(数值(1.005), 2)), "D:1.01");
    EXPECT_EQ(述(四舍五入(T("1.5"), std::numeric_limits<int>::min())), "D:2");
    EXPECT_EQ(述(四舍五入(T("abc"), 2)), "D:0");
    EXPECT_EQ(S(计算状态.错误提示), "进行[四舍五入]运算时，abc数值超出计算范围！返回 [0值] 。");
    EXPECT_EQ(S(计算状态.首个错误), k转换失败);
}

TEST_F(守护, 四舍五入高精度关闭时双精度向偶) {
    计算状态.高精度开关 = false;
    const struct { const char* x; int d; const char* 结果; int 损失; } 例[] = {
        {"2.5", 0, "F:2", 2},        // conversion and rounding each count
        {"3.5", 0, "F:4", 2},
        {"2.675", 2, "F:2.67", 2},   // the binary value lies below the tie
        {"-0.001", 2, "F:0", 2},     // no negative zero
        {"", 2, "F:0", 1},           // blank converts uncounted, the rounding counts
    };
    for (const auto& e : 例) {
        清除计算状态();
        EXPECT_EQ(述(四舍五入(T(e.x), e.d)), e.结果) << e.x;
        EXPECT_EQ(计算状态.精度损失数, e.损失) << e.x;
        EXPECT_EQ(计算状态.可达有效位数, 15);
    }
    const 数值 r = 四舍五入(T("1.2345678901234567"), 20);   // at most 15 places
    ASSERT_TRUE(r.是双精度());
    EXPECT_EQ(r.双精度值(), 1.234567890123457);
}

// Half away from zero on the one digit behind the cut is, for a decimal,
// the same as half away from zero on the whole discarded part: cross-check
// the text-digit procedure against the decimal's own rounding.
TEST_F(守护, 四舍五入与十进制舍入一致) {
    std::mt19937_64 rng(20261123);
    for (int n = 0; n < 3000; ++n) {
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
        const Decimal96 截 = v.truncated();
        const bool 负分数 = v.negative() && 截.isZero() && !v.isZero();
        EXPECT_EQ(S(取数值的整数部分(数值(t))), 负分数 ? std::string("-0") : S(截.toText())) << S(t);
    }
    EXPECT_EQ(计算状态.错误数, 0);
    EXPECT_EQ(计算状态.精度损失数, 0);
}

TEST_F(守护, 整数部分小数部分与科学计数形式) {
    const struct { const char* x; const char* 整; const char* 小; int 损失; } 表[] = {
        {"-0.5", "-0", "5", 0}, {"7", "7", "0", 0}, {"1.05", "1", "05", 0}, {"", "0", "0", 0},
        {"1E+30", "1E+30", "0", 1}, {"-1E+30", "-1E+30", "0", 1}, {"1E-30", "0", "1E-30", 1}, {"-1E-30", "-0", "-1E-30", 1},
    };
    for (const auto& e : 表) {
        清除计算状态();
        EXPECT_EQ(S(取数值的整数部分(T(e.x))), e.整) << e.x;
        EXPECT_EQ(S(取数值的小数部分(T(e.x))), e.小) << e.x;
        EXPECT_EQ(计算状态.精度损失数, 2 * e.损失) << e.x;
    }
    const struct { 数值 x; const char* 结果; } 科[] = {
        {T("0"), "0E+0"}, {T("1234.5"), "1.2345E+3"}, {T("-0.00123"), "-1.23E-3"}, {T("1.5"), "1.5E0"}, {T("5"), "5E0"},
        {T("100"), "1.00E+2"}, {T("1E+30"), "1E+30"}, {数值(1.0 / 3.0), "3.33333333333333E-1"},
        {T("12345678901234567890.123"), "1.2345678901234567890123E+19"},   // a decimal keeps its digits
    };
    for (const auto& e : 科) EXPECT_EQ(S(科学计数形式(e.x)), e.结果);
    EXPECT_EQ(计算状态.错误数, 0);
    清除计算状态();
    EXPECT_EQ(S(取数值的整数部分(T(" x1 "))), "0");
    EXPECT_EQ(S(计算状态.错误提示), "进行[取数值的整数部分]运算时，x1数值超出计算范围！返回数值 0 。");
    EXPECT_EQ(S(取数值的小数部分(T("x2"))), "0");
    EXPECT_EQ(S(计算状态.错误提示), "进行[取数值的小数部分]运算时，x2数值超出计算范围！返回数值 0 。");
    EXPECT_EQ(S(科学计数形式(T("abc"))), "0E+0");
    EXPECT_EQ(S(计算状态.错误提示), "进行[科学计数形式]运算时，abc数值超出计算范围！返回数值 0E+0 。");
    EXPECT_EQ(计算状态.错误数, 5);
}

TEST(数字文本, 去负号显示宽度与格式) {
    const struct { 数值 x; const char* 结果; } 去[] = {
        {T(" -5 "), "5"}, {T("--5"), "-5"}, {T(""), ""}, {数值(-2.5e-20), "2.5E-20"},
    };
    for (const auto& e : 去) EXPECT_EQ(S(去负号(e.x)), e.结果);
    const struct { const char* t; int 宽; } 宽[] = {{"", 0}, {"abc 1.5", 7}, {"a中b", 4}, {"45°30′", 8}, {"\xF0\x9F\x98\x80", 2}};
    for (const auto& e : 宽) EXPECT_EQ(显示宽度(QString::fromUtf8(e.t)), e.宽) << e.t;
    const struct { 数值 x; const char* 格式; const char* 结果; } 格[] = {
        {数值(-1234.5678), "0000000.000", "-0001234.568"},
        {数值(3456789.1235), "0000000.000", "3456789.124"},   // 15 digits first, then half away
        {数值(12345678.9), "0000000.000", "12345678.900"},    // more digits than placeholders
        {数值(-0.0004), "###0.000", "0.000"},                 // no "-" on a zero
        {数值(5.0), "#.##", "5"}, {数值(1.556), "0.0#", "1.56"}, {数值(0.5), "#.00", ".50"}, {数值(-2.5), "0", "-3"},
        {数值(1234567.891), "#,##0.00", "1,234,567.89"}, {数值(5.0), "X=0.0m", "X=5.0m"},
        {数值(-1.5e29), "#", "-150000000000000000000000000000"},
        {T("0.12345678901234567890123456785"), "0.000", "0.123"}, {T("abc"), "0.00", "0.00"},
    };
    for (const auto& e : 格) EXPECT_EQ(S(格式化数值(e.x, QString::fromUtf8(e.格式))), e.结果) << e.格式;
}

}  // namespace

// ===========================================================================
// Hostile text fed to every public text-taking procedure of the numeric
// core: blank, signs alone, huge exponents, 10 000-character texts,
// full-width and Chinese digits, NUL and control characters. Nothing may
// crash or throw; each procedure answers with its marker, and the collector
// tells exactly what it should (a failure where the text is no number,
// nothing where a blank text reads as zero).

namespace {

using namespace 数值测试;

enum class 性 { 空白, 非数, 数 };

struct 恶意输入 {
    const char* 名;
    QString 文本;
    性 性质;
};

const std::vector<恶意输入>& 恶意表() {
    static const std::vector<恶意输入> 表 = {
        {"empty", QString(), 性::空白}, {"blanks", QStringLiteral("   "), 性::空白},
        {"dashes", QStringLiteral("--"), 性::非数}, {"huge exponent", QStringLiteral("1e999999"), 性::非数},
        {"lone point", QStringLiteral("."), 性::非数}, {"E without digits", QStringLiteral("1E+"), 性::非数},
        {"10000 nines", QString(10000, u'9'), 性::非数},   // overflows every kind
        {"10000 junk", QString(10000, u'#'), 性::非数}, {"full-width digits", QString::fromUtf8("１２３"), 性::非数},
        {"Chinese numerals", QString::fromUtf8("一二三"), 性::非数},
        {"embedded NUL", QString(QChar(u'1')) + QChar(u'\0') + QChar(u'2'), 性::非数},
        {"tab", QStringLiteral("\t1"), 性::非数}, {"comma", QStringLiteral("1,5"), 性::非数},
        {"Infinity", QStringLiteral("-Infinity"), 性::非数}, {"lone surrogate", QString(QChar(0xD800)), 性::非数},
        {"tiny exponent", QStringLiteral("1e-999999"), 性::数},
        {"long valid fraction", QStringLiteral("0.") + QString(9998, u'3'), 性::数},
    };
    return 表;
}

class 恶意 : public 状态复位 {
protected:
    交互记录作用域 框;   // 度转梯度 may tell the user about its seconds
    void TearDown() override {
        状态复位::TearDown();
        计算状态.角度单位 = 60;
    }
};

// A procedure that takes text: its result for a non-number, the errors that
// adds (-1: at least one), its result for a blank text (nullptr: a failure),
// and the errors a blank adds (a zero divisor fails).
struct 被测 {
    const char* 名;
    std::function<数值(const QString&)> 调用;
    const char* 标记;
    int 非数错误;
    const char* 空白结果;
    int 空白错误 = 0;
};

数值 文(const QString& s) { return 数值(s); }

std::vector<被测> 被测表() {
    const QString two = QStringLiteral("2");
    return {
        {"Hvt数转数", [](const QString& t) { return Hvt数转数(t); }, "1", 1, "0"},
        {"求两数积 x", [two](const QString& t) { return 求两数积(t, two); }, "1", 2, "0"},
        {"求两数商 y", [two](const QString& t) { return 求两数商(two, t); }, "1", 2, "1", 1},
        {"求两数差 y", [two](const QString& t) { return 求两数差(two, t); }, "1", 2, "2"},
        {"求两数余 y", [two](const QString& t) { return 求两数余(two, t); }, "1", -1, "1", 2},
        {"四舍五入", [](const QString& t) { return 四舍五入(t, 2); }, "0", 2, "0"},
        {"取数值的整数部分", [](const QString& t) { return 文(取数值的整数部分(t)); }, "0", 2, "0"},
        {"科学计数形式", [](const QString& t) { return 文(科学计数形式(t)); }, "0E+0", 1, "0E+0"},
        {"格式化数值", [](const QString& t) { return 文(格式化数值(数值(t), QStringLiteral("0.00"))); }, "0.00", 0, "0.00"},
        {"乘方 x", [two](const QString& t) { return 乘方(t, two); }, "1", 2, "0"},
        {"乘方 y", [two](const QString& t) { return 乘方(two, t); }, "1", 2, "1"},
        {"开平方", [](const QString& t) { return 开平方(t); }, "1", 1, "0"},
        {"求自然对数", [](const QString& t) { return 求自然对数(t); }, nullptr, -1, nullptr},
        {"HvtSin", [](const QString& t) { return HvtSin(t); }, nullptr, 1, "0"},
        {"HvtCot", [](const QString& t) { return HvtCot(t); }, nullptr, 1, nullptr},
        {"度转弧度", [](const QString& t) { return 度转弧度(t); }, nullptr, 1, "0"},
        {"度转梯度", [](const QString& t) { return 度转梯度(t); }, "1", 1, "0"},
        {"度转度分秒", [](const QString& t) { return 度转度分秒(t); }, "1", 1, "0"},
        {"求合计值", [](const QString& t) { return 求合计值(1, {数值(t)}); }, nullptr, -1, "0"},
        {"求均方差", [](const QString& t) { return 求均方差(3, {数值(t), 数值(t), 数值()}); }, nullptr, -1, "0"},
        {"求变异系数n", [](const QString& t) { return 求变异系数n(3, {数值(t), 数值(t), 数值()}); }, nullptr, -1, "1E+28"},
    };
}

TEST_F(恶意, 取值过程给标记并报告) {
    for (const auto& p : 被测表()) {
        for (const auto& in : 恶意表()) {
            SCOPED_TRACE(std::string(p.名) + " <- " + in.名);
            清除计算状态();
            数值 r;
            EXPECT_NO_THROW(r = p.调用(in.文本));
            const std::string 文本 = S(r.是文本() ? r.文本值() : r.文本());
            switch (in.性质) {
            case 性::空白:
                if (p.空白结果) {
                    EXPECT_EQ(文本, p.空白结果);
                    EXPECT_EQ(计算状态.错误数, p.空白错误);
                } else {
                    EXPECT_GE(计算状态.错误数, 1);
                }
                break;
            case 性::非数:
                if (p.标记) { EXPECT_EQ(文本, p.标记); }
                if (p.非数错误 >= 0) { EXPECT_EQ(计算状态.错误数, p.非数错误); }
                else { EXPECT_GE(计算状态.错误数, 1); }
                if (计算状态.错误数 > 0) { EXPECT_TRUE(计算状态.错误记录.endsWith(计算状态.错误提示 + QStringLiteral("\r\n"))); }
                break;
            case 性::数:
                break;   // a long fraction or a tiny number: any honest answer
            }
        }
    }
    EXPECT_TRUE(框.记录器.记录.isEmpty());   // no text that is no angle shows a box
}

TEST_F(恶意, 文本检查与平凡运算只读不报) {
    for (const auto& in : 恶意表()) {
        SCOPED_TRACE(in.名);
        清除计算状态();
        const 数值 v(in.文本);
        const int 有效 = 判断数的有效字符长度(v), 全部 = 判断数的有效019字符长度(v), E = HvtE位置(v);
        EXPECT_GE(有效, 0);
        EXPECT_GE(全部, 有效);
        EXPECT_GE(Hvt减号数(v), 0);
        EXPECT_GE(Hvt点号数(v), 0);
        EXPECT_GE(E, 0);
        EXPECT_LE(E, in.文本.size());
        EXPECT_LE(Hvt有效长度(v, 5).size(), in.文本.size());
        EXPECT_LE(显示宽度(in.文本), 2 * in.文本.size());
        EXPECT_LE(去负号(v).size(), in.文本.size());
        EXPECT_TRUE(std::isfinite(文本转角度(in.文本)));
        const bool 是数 = in.性质 == 性::数;
        数值 r(QStringLiteral("untouched"));
        double f = 0;
        int c = 0;
        EXPECT_EQ(转双精度(v, f), 是数);
        EXPECT_EQ(数值加(v, 数值(1), r), 是数);
        EXPECT_EQ(数值比较(v, 数值(1), c), 是数);
        if (!是数) { EXPECT_EQ(r.文本值(), QStringLiteral("untouched")); }
        EXPECT_EQ(计算状态.错误数, 0);
    }
    for (const char* t : {"°", "°°°", "-°-′-″", "1e999999°", "45°99999999999999999999′", "NaN°NaN′NaN″"})
        EXPECT_TRUE(std::isfinite(文本转角度(QString::fromUtf8(t)))) << t;
    EXPECT_TRUE(std::isfinite(文本转角度(QString(5000, u'9') + QStringLiteral("°"))));
    for (int d : {std::numeric_limits<int>::min(), 1000, std::numeric_limits<int>::max()}) {
        EXPECT_NO_THROW(四舍五入(T("1.23456"), d));
        EXPECT_NO_THROW(Hvt有效长度(T("1.23456"), d));
    }
    EXPECT_EQ(S(Hvt有效长度(T("1.23456"), std::numeric_limits<int>::max())), "1.23456");
    EXPECT_EQ(计算状态.错误数, 0);
}

TEST_F(恶意, 双精度族面对非有限与极值) {
    const double 值[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                         -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::max(),
                         -std::numeric_limits<double>::denorm_min(), 1E-300, -0.0, 7.9228162514264337E+28,
                         179769313486232.5};
    for (double x : 值) {
        EXPECT_EQ(十进制度转弧度(x), 0.0) << x;
        EXPECT_EQ(度分秒转弧度双精度(x), 0.0) << x;
        EXPECT_TRUE(std::isfinite(度转梯度双精度(x))) << x;
        if (!std::isfinite(x) || std::fabs(x) >= 1E+15 || (x != 0.0 && std::fabs(x) < 1E-15)) {
            EXPECT_EQ(S(角度转文本(x, QStringLiteral("00.00000000"))), "0°") << x;   // a value whose text needs an exponent
        }
        // Beyond the bound, or without a fraction, the packed forms pass x on.
        const double p = 度转度分秒双精度(x), q = 规范度分秒(x);
        if (std::isnan(x)) {
            EXPECT_TRUE(std::isnan(p) && std::isnan(q));
        } else if (std::fabs(x) > 角度双精度界限 || x == 0.0) {
            EXPECT_EQ(p, x);
            EXPECT_EQ(q, x);
        } else {
            EXPECT_TRUE(std::isfinite(p) && std::isfinite(q)) << x;
        }
    }
    EXPECT_EQ(计算状态.错误数, 0);
    EXPECT_TRUE(框.记录器.记录.isEmpty());
}

}  // namespace
