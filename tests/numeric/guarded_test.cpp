// The guarded arithmetic: conversion, inspectors, the four operations, the
// remainder and Double和, with their tiers, counters and exact messages; and
// the plain tagged arithmetic under them.
#include "numeric/guarded.h"
#include "numeric/value.h"
#include "shell/state.h"
#include "numeric_test_support.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace {

using namespace 数值测试;

class 守护 : public 状态复位 {};

// ---- Hvt数转数 --------------------------------------------------------------

struct 转换例 {
    const char* 输入;
    const char* 结果;   // 述() of the result
    int 损失;           // 精度损失数 afterwards
    int 错误;           // 错误数 afterwards
};

TEST_F(守护, 数转数按界限与位数决定类型) {
    const 转换例 例[] = {
        {"", "D:0", 0, 0},
        {"   ", "D:0", 0, 0},
        {" 12.50 ", "D:12.5", 0, 0},
        {"1.5E+3", "D:1500", 0, 0},
        {"-0", "D:0", 0, 0},
        {"1.2345678901234567890123456789", "D:1.2345678901234567890123456789", 0, 0},
        {"-79228162514264337593543950335", "F:-7.92281625142643E+28", 1, 0},
        {"7.9228162514264E+28", "D:79228162514264000000000000000", 0, 0},
        {"7.92281625142642E+28", "F:7.92281625142642E+28", 1, 0},   // upper bound is open
        {"-7.92281625142642E+28", "F:-7.92281625142642E+28", 1, 0},
        {"1E+29", "F:1E+29", 1, 0},
        {"1E-28", "D:0.0000000000000000000000000001", 0, 0},          // lower bound is closed
        {"-1E-28", "D:-0.0000000000000000000000000001", 0, 0},
        {"1E-29", "F:1E-29", 1, 0},
        {"0.00000000000000000000000000012345", "F:1.2345E-28", 1, 0}, // decimal keeps 1 digit of 5
        {"0.00000000000000000000000000015", "F:1.5E-28", 1, 0},
        {"0.0000000000000000000000000002", "D:0.0000000000000000000000000002", 0, 0},
        {"1e-999999", "D:0", 0, 0},
        {"abc", "T:1", 0, 1},
        {"1e999999", "T:1", 0, 1},
    };
    for (const auto& e : 例) {
        清除计算状态();
        SCOPED_TRACE(e.输入);
        EXPECT_EQ(述(Hvt数转数(T(e.输入))), e.结果);
        EXPECT_EQ(公共.精度损失数, e.损失);
        EXPECT_EQ(公共.可达有效位数, e.损失 > 0 ? 15 : 29);
        EXPECT_EQ(公共.错误数, e.错误);
    }
}

TEST_F(守护, 数转数接受各种类型) {
    struct 例 { 数值 输入; const char* 结果; int 损失; } 表[] = {
        {数值(), "D:0", 0},
        {数值(7), "D:7", 0},
        {数值(0.1), "D:0.1", 0},                       // 15-digit rule, not the binary value
        {数值(1.0 / 3.0), "D:0.333333333333333", 0},
        {数值(1e30), "F:1E+30", 1},
        {数值(-2.5e-30), "F:-2.5E-30", 1},
        {数值(Decimal96::fromParts(1, 0, 0, true, 28)), "D:-0.0000000000000000000000000001", 0},
    };
    for (const auto& e : 表) {
        清除计算状态();
        SCOPED_TRACE(e.结果);
        EXPECT_EQ(述(Hvt数转数(e.输入)), e.结果);
        EXPECT_EQ(公共.精度损失数, e.损失);
        EXPECT_EQ(公共.错误数, 0);
    }
}

TEST_F(守护, 数转数失败的消息与收集器) {
    Hvt数转数(T("  abc "));
    EXPECT_EQ(公共.错误数, 1);
    EXPECT_EQ(S(公共.错误提示), "  进行[Hvt数转数]运算时， abc 数值超出计算范围！返回数值用[1]表示。");
    EXPECT_EQ(公共.首个错误, 公共.错误提示);
    Hvt数转数(T("x"));
    EXPECT_EQ(公共.错误数, 2);
    EXPECT_EQ(S(公共.错误记录),
              "  进行[Hvt数转数]运算时， abc 数值超出计算范围！返回数值用[1]表示。\r\n"
              "  进行[Hvt数转数]运算时， x 数值超出计算范围！返回数值用[1]表示。\r\n");
    EXPECT_NE(公共.首个错误, 公共.错误提示);
}

TEST_F(守护, 数转数高精度关闭时一律双精度) {
    公共.高精度开关 = false;
    EXPECT_EQ(述(Hvt数转数(T("0.5"))), "F:0.5");
    EXPECT_EQ(述(Hvt数转数(T("3"))), "F:3");
    EXPECT_EQ(公共.精度损失数, 2);       // counts events, one each
    EXPECT_EQ(公共.可达有效位数, 15);
    EXPECT_EQ(述(Hvt数转数(T(""))), "D:0");   // blank stays decimal zero, uncounted
    EXPECT_EQ(公共.精度损失数, 2);
}

// ---- Inspectors -----------------------------------------------------------------

TEST_F(守护, 检查器) {
    struct 例 { const char* 输入; int 有效; int 全部; int 减号; int 点号; int E; } 表[] = {
        {"0.00120", 3, 6, 0, 1, 0},
        {"1.50E+3", 3, 3, 0, 1, 5},
        {"007", 1, 3, 0, 0, 0},
        {"-1E-5", 1, 1, 1, 0, 3},
        {"12e5", 2, 2, 0, 0, 3},
        {"  +12 34  ", 4, 4, 0, 0, 0},
        {"12a34", 2, 2, 0, 0, 0},
        {"-0.0", 0, 2, 1, 1, 0},
        {"", 0, 0, 0, 0, 0},
        {"--1.2.3E.4-", 3, 3, 2, 2, 8},
        {"1000", 4, 4, 0, 0, 0},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(e.输入);
        EXPECT_EQ(判断数的有效字符长度(T(e.输入)), e.有效);
        EXPECT_EQ(判断数的有效019字符长度(T(e.输入)), e.全部);
        EXPECT_EQ(Hvt减号数(T(e.输入)), e.减号);
        EXPECT_EQ(Hvt点号数(T(e.输入)), e.点号);
        EXPECT_EQ(HvtE位置(T(e.输入)), e.E);
    }
    EXPECT_EQ(公共.错误数, 0);
    // Decimals and doubles are read through their text.
    EXPECT_EQ(判断数的有效字符长度(数值(1.0 / 3.0)), 15);
    EXPECT_EQ(HvtE位置(数值(1e20)), 2);
    EXPECT_EQ(HvtE位置(数值(Decimal96::fromInt64(-100000))), 0);
}

TEST_F(守护, 检查器对无数字文本的值失败) {
    const 数值 nan(std::numeric_limits<double>::quiet_NaN());
    struct 例 { int 结果; const char* 消息; } 表[] = {
        {判断数的有效字符长度(nan), "进行[判断数的有效字符长度]运算时， NaN 出现错误！"},
        {判断数的有效019字符长度(nan), "进行[判断数的有效019字符长度]运算时， NaN 出现错误！"},
        {Hvt减号数(nan), "进行[Hvt减号数]运算时， NaN 出现错误！"},
        {Hvt点号数(nan), "进行[Hvt点号数]运算时， NaN 出现错误！"},
        {HvtE位置(nan), "进行[HvtE位置]运算时，NaN 数值超出范围！返回数值用 -1 表示。"},
    };
    QString 期望记录;
    for (const auto& e : 表) {
        EXPECT_EQ(e.结果, -1);
        期望记录 += QString::fromUtf8(e.消息) + "\r\n";
    }
    EXPECT_EQ(S(Hvt有效长度(数值(-std::numeric_limits<double>::infinity()), 3)), "-1");
    期望记录 += QString::fromUtf8("进行[Hvt有效长度]运算时，-Infinity数值超出计算范围！返回数值 -1。\r\n");
    EXPECT_EQ(公共.错误数, 6);
    EXPECT_EQ(S(公共.错误记录), S(期望记录));
}

TEST_F(守护, 有效长度只截不舍且不截整数) {
    struct 例 { const char* 输入; int n; const char* 结果; } 表[] = {
        {"1234567", 3, "1234567"},
        {"1234.5678", 3, "1234.5"},
        {"0.001234", 2, "0.0012"},
        {"0.001299", 2, "0.0012"},       // cut, never rounded
        {"-12.345", 4, "-12.34"},
        {"1.23456E+05", 3, "1.23E+05"},
        {"1.23456e-05", 3, "1.23e-05"},
        {"1.5", 10, "1.5"},
        {" 9.87654 ", 1, "9.8"},          // the first digit behind the point is the earliest cut
        {"100.001", 4, "100.0"},
        {"", 3, ""},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(e.输入);
        EXPECT_EQ(S(Hvt有效长度(T(e.输入), e.n)), e.结果);
    }
    EXPECT_EQ(公共.错误数, 0);
}

// ---- The four guarded operations ----------------------------------------------

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

struct 运算例 {
    运 op;
    const char* x;
    const char* y;
    const char* 结果;
    int 损失;
    int 错误;
    const char* 末消息;   // 错误提示 afterwards ("" when none)
};

TEST_F(守护, 三层运算) {
    const 运算例 例[] = {
        // Decimal tier.
        {运::积, "2", "3", "D:6", 0, 0, ""},
        {运::积, "-3", "0.5", "D:-1.5", 0, 0, ""},
        {运::积, "1.1", "1.1", "D:1.21", 0, 0, ""},
        {运::积, "0.00000000000001", "0.00000000000001", "D:0.0000000000000000000000000001", 0, 0, ""},
        {运::积, "", "5", "D:0", 0, 0, ""},
        {运::积, "123456789012345678", "1000000000", "D:123456789012345678000000000", 0, 0, ""},
        {运::商, "1", "3", "D:0.3333333333333333333333333333", 0, 0, ""},
        {运::商, "2", "3", "D:0.6666666666666666666666666667", 0, 0, ""},
        {运::商, "10", "4", "D:2.5", 0, 0, ""},
        {运::商, "-1", "8", "D:-0.125", 0, 0, ""},
        {运::和, "0.1", "0.2", "D:0.3", 0, 0, ""},
        {运::和, "1E-28", "-1E-28", "D:0", 0, 0, ""},    // no underflow test on sums
        {运::和, "1E-15", "1E-15", "D:0.000000000000002", 0, 0, ""},
        {运::和, "1.2345678901234567890123456789", "0", "D:1.2345678901234567890123456789", 0, 0, ""},
        {运::差, "0.3", "0.1", "D:0.2", 0, 0, ""},
        {运::差, "1", "1", "D:0", 0, 0, ""},
        {运::差, " 5 ", "   ", "D:5", 0, 0, ""},
        // Double tier: the decimal overflows or underflows.
        {运::积, "1E+20", "1E+20", "F:1E+40", 1, 0, ""},
        {运::积, "99999999999999999999", "99999999999999999999", "F:1E+40", 1, 0, ""},
        {运::积, "1E-15", "1E-15", "F:1E-30", 1, 0, ""},
        {运::商, "1E-20", "1E+20", "F:1E-40", 1, 0, ""},
        {运::和, "50000000000000000000000000000", "50000000000000000000000000000", "F:1E+29", 1, 0, ""},
        // An operand beyond the decimal: its conversion counts, and so does the fall.
        {运::积, "1E+30", "2", "F:2E+30", 2, 0, ""},
        {运::积, "2", "1E+30", "F:2E+30", 2, 0, ""},
        {运::和, "79228162514264337593543950335", "1", "F:7.92281625142643E+28", 2, 0, ""},
        {运::积, "1E+30", "1E+30", "F:1E+60", 2, 0, ""},   // y is never converted once x has an E
        // Failure tier.
        {运::商, "1", "0", "T:1", 0, 1,
         "  进行[求两数商]运算时， 1/0 数值超出计算范围！返回数值用 [1] 表示。"},
        {运::商, " 0 ", "0.0", "T:1", 0, 1,
         "  进行[求两数商]运算时， 0/0.0 数值超出计算范围！返回数值用 [1] 表示。"},
        {运::积, "1E+300", "1E+300", "T:1", 1, 1,
         "  进行[求两数积]运算时， 1E+300*1E+300 数值超出计算范围！返回数值用 [1] 表示。"},
        {运::和, "1E+308", "1E+308", "T:1", 1, 1,
         "  进行[求两数和]运算时， 1E+308+1E+308 数值超出计算范围！返回数值用 [1] 表示。"},
        {运::差, "-1E+308", "1E+308", "T:1", 1, 1,
         "  进行[求两数差]运算时， -1E+308-1E+308 数值超出计算范围！返回数值用 [1] 表示。"},
        {运::积, "abc", "2", "T:1", 0, 2,
         "  进行[求两数积]运算时， abc*2 数值超出计算范围！返回数值用 [1] 表示。"},
        {运::和, "2", "abc", "T:1", 0, 2,
         "  进行[求两数和]运算时， 2+abc 数值超出计算范围！返回数值用 [1] 表示。"},
        // Remainders take the sign of the dividend.
        {运::余, "7", "3", "D:1", 0, 0, ""},
        {运::余, "-7", "3", "D:-1", 0, 0, ""},
        {运::余, "7", "-3", "D:1", 0, 0, ""},
        {运::余, "-7", "-3", "D:-1", 0, 0, ""},
        {运::余, "7.5", "2", "D:1.5", 0, 0, ""},
        {运::余, "-0.5", "3", "D:-0.5", 0, 0, ""},
        {运::余, "6", "3", "D:0", 0, 0, ""},
        {运::余, "10", "0.3", "D:0.1", 0, 0, ""},
        {运::余, "7", "0", "T:1", 0, 2,
         "  进行[求两数余]运算时， 7余0 数值超出计算范围！返回数值用 [1] 表示。"},
    };
    for (const auto& e : 例) {
        清除计算状态();
        SCOPED_TRACE(std::string(e.x) + " op" + std::to_string(int(e.op)) + " " + e.y);
        EXPECT_EQ(述(算(e.op, T(e.x), T(e.y))), e.结果);
        EXPECT_EQ(公共.精度损失数, e.损失);
        EXPECT_EQ(公共.可达有效位数, e.损失 > 0 ? 15 : 29);
        EXPECT_EQ(公共.错误数, e.错误);
        EXPECT_EQ(S(公共.错误提示), e.末消息);
    }
}

TEST_F(守护, 失败时首个错误是最早的消息) {
    求两数积(T("abc"), T("2"));
    EXPECT_EQ(S(公共.首个错误), "  进行[Hvt数转数]运算时， abc 数值超出计算范围！返回数值用[1]表示。");
    求两数余(T("7"), T("0"));
    EXPECT_EQ(公共.错误数, 4);
    EXPECT_EQ(S(公共.首个错误), "  进行[Hvt数转数]运算时， abc 数值超出计算范围！返回数值用[1]表示。");
    EXPECT_EQ(S(公共.错误记录),
              "  进行[Hvt数转数]运算时， abc 数值超出计算范围！返回数值用[1]表示。\r\n"
              "  进行[求两数积]运算时， abc*2 数值超出计算范围！返回数值用 [1] 表示。\r\n"
              "  进行[求两数商]运算时， 7/0 数值超出计算范围！返回数值用 [1] 表示。\r\n"
              "  进行[求两数余]运算时， 7余0 数值超出计算范围！返回数值用 [1] 表示。\r\n");
}

TEST_F(守护, 运算接受十进制与双精度操作数) {
    struct 例 { 运 op; 数值 x, y; const char* 结果; int 损失; } 表[] = {
        // A double operand reads by its 15 digits, so 0.1 is exactly 0.1.
        {运::和, 数值(0.1), 数值(0.2), "D:0.3", 0},
        {运::积, 数值(1.0 / 3.0), 数值(3), "D:0.999999999999999", 0},
        {运::商, 数值(Decimal96::fromInt64(1)), 数值(7), "D:0.1428571428571428571428571429", 0},
        {运::差, 数值(), 数值(Decimal96::fromInt64(5)), "D:-5", 0},
        {运::积, 数值(1e200), 数值(1e200), "T:1", 1},
    };
    for (const auto& e : 表) {
        清除计算状态();
        SCOPED_TRACE(e.结果);
        EXPECT_EQ(述(算(e.op, e.x, e.y)), e.结果);
        EXPECT_EQ(公共.精度损失数, e.损失);
    }
}

TEST_F(守护, 高精度关闭时运算仍以十进制收尾) {
    // The conversions fall (counted), but the result is recomputed from the
    // operands themselves as decimals.
    公共.高精度开关 = false;
    EXPECT_EQ(述(求两数和(T("0.1"), T("0.2"))), "D:0.3");
    EXPECT_EQ(公共.精度损失数, 2);
    EXPECT_EQ(公共.可达有效位数, 15);
}

// ---- Double和 --------------------------------------------------------------------

TEST_F(守护, Double和去掉二进制噪声) {
    struct 例 { double a, b, 结果; } 表[] = {
        {0.1, 0.2, 0.3},                      // plain double: 0.30000000000000004
        {1.0 / 3.0, 0.0, 0.333333333333333},  // 15 digits each
        {-0.7, 0.1, -0.6},
        {1e300, 1e300, 2e300},                // beyond the decimal: plain sum
        {1e-30, 1.0, 1.0},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(e.结果);
        EXPECT_EQ(Double和(e.a, e.b), e.结果);
    }
    EXPECT_NE(0.1 + 0.2, 0.3);   // guards the first line's meaning
    EXPECT_EQ(公共.错误数, 0);
    EXPECT_EQ(公共.精度损失数, 0);
    EXPECT_EQ(公共.可达有效位数, 29);
}

TEST_F(守护, Double和溢出) {
    EXPECT_EQ(Double和(1e308, 1e308), 1.0);
    EXPECT_EQ(公共.错误数, 1);
    EXPECT_EQ(S(公共.错误提示), "进行[Double和]运算时，[1E+308 + 1E+308]出现错误！");
    EXPECT_EQ(Double和(std::numeric_limits<double>::quiet_NaN(), 1.0), 1.0);
    EXPECT_EQ(S(公共.错误提示), "进行[Double和]运算时，[NaN + 1]出现错误！");
    EXPECT_EQ(公共.精度损失数, 0);
}

// ---- Plain tagged arithmetic -------------------------------------------------------

TEST(数值运算, 类型规则) {
    const Decimal96 d15 = Decimal96::fromParts(15, 0, 0, false, 1);   // 1.5
    struct 例 { 数值 a; 运算符 op; 数值 b; bool 成; const char* 结果; } 表[] = {
        {数值(Decimal96::fromParts(1, 0, 0, false, 1)), 运算符::加, 数值(0.2), true, "D:0.3"},
        {数值(2), 运算符::乘, 数值(0.5), true, "F:1"},
        {数值(2), 运算符::乘, 数值(d15), true, "D:3"},
        {T("1.5"), 运算符::加, 数值(1), true, "D:2.5"},
        {T("1.5"), 运算符::加, T("1"), true, "D:2.5"},
        {T("0.5"), 运算符::减, 数值(0.25), true, "F:0.25"},
        {数值(), 运算符::加, 数值(d15), true, "D:1.5"},
        {数值(), 运算符::乘, 数值(), true, "D:0"},
        {数值(d15), 运算符::加, 数值(1e30), false, ""},       // the double does not convert
        {数值(1e308), 运算符::乘, 数值(10.0), false, ""},
        {数值(1.0), 运算符::除, 数值(0.0), false, ""},
        {数值(0.0), 运算符::除, 数值(0.0), false, ""},
        {数值(d15), 运算符::除, 数值(0), false, ""},
        {T("abc"), 运算符::加, 数值(1), false, ""},
        {数值(1), 运算符::加, T("1x"), false, ""},
        {数值(std::numeric_limits<double>::infinity()), 运算符::减, 数值(1.0), false, ""},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(e.结果);
        数值 r(QStringLiteral("untouched"));
        EXPECT_EQ(数值运算(e.a, e.op, e.b, r), e.成);
        EXPECT_EQ(述(r), e.成 ? std::string(e.结果) : std::string("T:untouched"));
    }
}

TEST(数值运算, 双精度与双精度不经十进制) {
    数值 r;
    ASSERT_TRUE(数值加(数值(0.1), 数值(0.2), r));
    ASSERT_TRUE(r.是双精度());
    EXPECT_EQ(r.双精度值(), 0.1 + 0.2);
}

TEST(数值运算, 比较) {
    struct 例 { 数值 a, b; bool 成; int 结果; } 表[] = {
        {T("abc"), T("abd"), true, -1},
        {T("B"), T("a"), true, -1},          // code units, case sensitive
        {T("10"), T("9"), true, -1},         // two texts compare as text
        {T("10"), 数值(9), true, 1},         // a text against a number compares as a number
        {数值(Decimal96::fromParts(1, 0, 0, false, 1)), 数值(0.1), true, 0},
        {数值(1e30), 数值(Decimal96::fromInt64(5)), true, 1},
        {数值(Decimal96::fromInt64(5)), 数值(-1e30), true, 1},
        {数值(Decimal96::fromParts(0, 0, 0, true, 3)), 数值(0), true, 0},   // -0 equals 0
        {数值(), 数值(0.0), true, 0},
        {数值(2.5), 数值(2.25), true, 1},
        {T("abc"), 数值(1), false, 0},
    };
    for (const auto& e : 表) {
        int r = 99;
        EXPECT_EQ(数值比较(e.a, e.b, r), e.成);
        if (e.成) {
            EXPECT_EQ(r, e.结果);
        }
    }
}

TEST(数值运算, 零与符号) {
    struct 例 { 数值 v; bool 零; int 号; } 表[] = {
        {数值(), true, 0},
        {T("  "), false, 0},     // blank text is not a number to the plain readers
        {T("-0.000"), true, 0},
        {T("1E-300"), false, 1},
        {T("-3"), false, -1},
        {T("x"), false, 0},
        {数值(-0.0), true, 0},
        {数值(Decimal96::fromParts(0, 0, 0, true, 0)), true, 0},
        {数值(-7), false, -1},
    };
    for (const auto& e : 表) {
        EXPECT_EQ(是零(e.v), e.零);
        EXPECT_EQ(符号(e.v), e.号);
    }
}

}  // namespace
