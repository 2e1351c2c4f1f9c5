// Helpers shared by the tests of the numeric folder.
#pragma once

#include "numeric/value.h"
#include "numeric/state.h"

#include <gtest/gtest.h>

#include <string>

namespace 数值测试 {

inline std::string S(const QString& s) { return s.toStdString(); }

// "D:0.3" decimal, "F:1E+40" double, "T:1" text, "I:5" small integer,
// "E:" empty: kind and text in one comparable string.
inline std::string 述(const 数值& v) {
    switch (v.kind()) {
    case 数值::类型::空: return "E:";
    case 数值::类型::文本: return "T:" + S(v.文本值());
    case 数值::类型::十进制: return "D:" + S(v.文本());
    case 数值::类型::双精度: return "F:" + S(v.文本());
    case 数值::类型::整数: return "I:" + S(v.文本());
    }
    return "?";
}

inline 数值 T(const char* s) { return 数值(QString::fromUtf8(s)); }

// A test that starts and ends with a clean collector and the switch on.
class 状态复位 : public ::testing::Test {
protected:
    void SetUp() override {
        清除计算状态();
        计算状态.高精度开关 = true;
    }
    void TearDown() override {
        清除计算状态();
        计算状态.高精度开关 = true;
    }
};

// v is a decimal within 容差 of 真值 (a reference of up to 40 digits,
// read to the decimal's 28 places), the difference taken in decimal.
inline ::testing::AssertionResult 接近(const 数值& v, const char* 真值, double 容差) {
    if (!v.是十进制()) return ::testing::AssertionFailure() << "not a decimal: " << 述(v);
    Decimal96 t, tol, d;
    Decimal96::fromText(QString::fromUtf8(真值), t);
    Decimal96::fromDouble(容差, tol);
    if (Decimal96::sub(v.十进制值(), t, d) != Decimal96::Status::Ok)
        return ::testing::AssertionFailure() << "difference overflows";
    if (tol < d.abs())
        return ::testing::AssertionFailure() << S(v.文本()) << " differs from " << 真值 << " by " << S(d.toText());
    return ::testing::AssertionSuccess();
}

}  // namespace 数值测试
