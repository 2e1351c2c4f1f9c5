// 数值, the number value: what every numeric procedure takes and returns,
// passed by value. Between two steps of a calculation a number lives as
// text; its kind is decided anew at each reading (Hvt数转数).
#pragma once

#include "numeric/decimal.h"

#include <QString>
#include <cstdint>

class 数值 {
public:
    enum class 类型 : std::uint8_t {
        空,      // nothing: an unset variable or missing result; zero in arithmetic, "" as text
        文本,    // a number as typed or stored, or the failure marker "1"
        十进制,  // Decimal96, the normal case
        双精度,  // IEEE binary64, the fallen case
        整数,    // small signed integer constant; widens to the other operand's kind
    };

    数值() = default;
    数值(const QString& s) : 类型_(类型::文本), 文本_(s) {}
    数值(const char16_t* s) : 类型_(类型::文本), 文本_(QString::fromUtf16(s)) {}
    数值(const Decimal96& d) : 类型_(类型::十进制), 十进制_(d) {}
    数值(double d) : 类型_(类型::双精度), 双精度_(d) {}
    数值(int i) : 类型_(类型::整数), 整数_(i) {}

    类型 kind() const { return 类型_; }
    bool 是空() const { return 类型_ == 类型::空; }
    bool 是文本() const { return 类型_ == 类型::文本; }
    bool 是十进制() const { return 类型_ == 类型::十进制; }
    bool 是双精度() const { return 类型_ == 类型::双精度; }
    bool 是整数() const { return 类型_ == 类型::整数; }

    // Stored payloads; meaningful only for the matching kind.
    const QString& 文本值() const { return 文本_; }
    const Decimal96& 十进制值() const { return 十进制_; }
    double 双精度值() const { return 双精度_; }
    std::int32_t 整数值() const { return 整数_; }

    // The value read as text: decimal → Decimal96::toText (never an
    // exponent), double → 双精度文本 (15 digits, exponent when needed),
    // integer → its digits, text → itself untrimmed, empty → "".
    QString 文本() const;

private:
    类型 类型_ = 类型::空;
    std::int32_t 整数_ = 0;
    double 双精度_ = 0.0;
    Decimal96 十进制_;
    QString 文本_;
};
