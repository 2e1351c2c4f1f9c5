// The guarded arithmetic and the rounding on the digits of a number's text:
// conversion, inspectors, the four operations with their tiers, counters
// and exact messages, Double和, the plain tagged arithmetic under them, and
// the integer and fraction cuts, the scientific form and the number formats.
#include "numeric/guarded.h"
#include "numeric/rounding.h"
#include "numeric/value.h"
#include "shell/state.h"
#include "numeric_test_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <string>

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
        EXPECT_EQ(公共.精度损失数, e.损失);
        EXPECT_EQ(公共.可达有效位数, e.损失 > 0 ? 15 : 29);
        EXPECT_EQ(公共.错误数, e.错误);
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
    EXPECT_EQ(公共.错误数, 0);
    // A value without any digit text fails each with its own words.
    const 数值 nan(std::numeric_limits<double>::quiet_NaN());
    for (int r : {判断数的有效字符长度(nan), 判断数的有效019字符长度(nan), Hvt减号数(nan), Hvt点号数(nan), HvtE位置(nan)})
        EXPECT_EQ(r, -1);
    EXPECT_EQ(S(Hvt有效长度(数值(-std::numeric_limits<double>::infinity()), 3)), "-1");
    EXPECT_EQ(S(公共.错误记录), "进行[判断数的有效字符长度]运算时， NaN 出现错误！\r\n"
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
    EXPECT_EQ(公共.错误数, 0);
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
        EXPECT_EQ(公共.精度损失数, e.损失);
        EXPECT_EQ(公共.可达有效位数, e.损失 > 0 ? 15 : 29);
        EXPECT_EQ(公共.错误数, e.错误);
        EXPECT_EQ(S(公共.错误提示), e.末消息);
    }
    // With the switch off the conversions fall (counted), but the result is
    // recomputed from the operands themselves as decimals.
    清除计算状态();
    公共.高精度开关 = false;
    EXPECT_EQ(述(求两数和(T("0.1"), T("0.2"))), "D:0.3");
    EXPECT_EQ(公共.精度损失数, 2);
}

TEST_F(守护, Double和去掉二进制噪声) {
    EXPECT_EQ(Double和(0.1, 0.2), 0.3);                      // plain double: 0.30000000000000004
    EXPECT_EQ(Double和(1.0 / 3.0, 0.0), 0.333333333333333);  // 15 digits each
    EXPECT_EQ(Double和(1e300, 1e300), 2e300);                // beyond the decimal: plain sum
    EXPECT_EQ(公共.错误数, 0);
    EXPECT_EQ(公共.精度损失数, 0);
    EXPECT_EQ(Double和(1e308, 1e308), 1.0);
    EXPECT_EQ(S(公共.错误提示), "进行[Double和]运算时，[1E+308 + 1E+308]出现错误！");
    EXPECT_EQ(Double和(std::numeric_limits<double>::quiet_NaN(), 1.0), 1.0);
    EXPECT_EQ(S(公共.错误提示), "进行[Double和]运算时，[NaN + 1]出现错误！");
    EXPECT_EQ(公共.精度损失数, 0);
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
        EXPECT_EQ(公共.精度损失数, e.损失);
        EXPECT_EQ(公共.错误数, 0);
    }
    // 1.005 as a double lies below 1.005; read by its 15 digits it rounds up.
    EXPECT_EQ(述(四舍五入(数值(1.005), 2)), "D:1.01");
    EXPECT_EQ(述(四舍五入(T("1.5"), std::numeric_limits<int>::min())), "D:2");
    EXPECT_EQ(述(四舍五入(T("abc"), 2)), "D:0");
    EXPECT_EQ(S(公共.错误提示), "进行[四舍五入]运算时，abc数值超出计算范围！返回 [0值] 。");
    EXPECT_EQ(S(公共.首个错误), k转换失败);
}

TEST_F(守护, 四舍五入高精度关闭时双精度向偶) {
    公共.高精度开关 = false;
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
        EXPECT_EQ(公共.精度损失数, e.损失) << e.x;
        EXPECT_EQ(公共.可达有效位数, 15);
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
    EXPECT_EQ(公共.错误数, 0);
    EXPECT_EQ(公共.精度损失数, 0);
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
        EXPECT_EQ(公共.精度损失数, 2 * e.损失) << e.x;
    }
    const struct { 数值 x; const char* 结果; } 科[] = {
        {T("0"), "0E+0"}, {T("1234.5"), "1.2345E+3"}, {T("-0.00123"), "-1.23E-3"}, {T("1.5"), "1.5E0"}, {T("5"), "5E0"},
        {T("100"), "1.00E+2"}, {T("1E+30"), "1E+30"}, {数值(1.0 / 3.0), "3.33333333333333E-1"},
        {T("12345678901234567890.123"), "1.2345678901234567890123E+19"},   // a decimal keeps its digits
    };
    for (const auto& e : 科) EXPECT_EQ(S(科学计数形式(e.x)), e.结果);
    EXPECT_EQ(公共.错误数, 0);
    清除计算状态();
    EXPECT_EQ(S(取数值的整数部分(T(" x1 "))), "0");
    EXPECT_EQ(S(公共.错误提示), "进行[取数值的整数部分]运算时，x1数值超出计算范围！返回数值 0 。");
    EXPECT_EQ(S(取数值的小数部分(T("x2"))), "0");
    EXPECT_EQ(S(公共.错误提示), "进行[取数值的小数部分]运算时，x2数值超出计算范围！返回数值 0 。");
    EXPECT_EQ(S(科学计数形式(T("abc"))), "0E+0");
    EXPECT_EQ(S(公共.错误提示), "进行[科学计数形式]运算时，abc数值超出计算范围！返回数值 0E+0 。");
    EXPECT_EQ(公共.错误数, 5);
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
