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

// ---- Plain tagged arithmetic ------------------------------------------------
// The building blocks under the guarded operations (numeric/guarded.h). None
// of these reports or throws; each says by its bool whether it succeeded and
// leaves `out` untouched when it did not.
//
// Kind rules of two operands:
//   * decimal with decimal → decimal;
//   * decimal with double → decimal: the double is converted by the 15-digit
//     rule (Decimal96::fromDouble); if that fails, the operation fails;
//   * double with double → double; a result that is infinite or not a number
//     fails (overflow and zero divide alike);
//   * small integers, empty values (zero) and numeric text take the other
//     operand's kind; two of them together work as decimals;
//   * text that is not a number fails.

// The value as a decimal: empty → 0; text → Decimal96::fromText (blanks at
// both ends allowed; a blank text is not a number here); decimal → itself;
// double → the 15-digit rule; integer → exact. False when not possible.
bool 转十进制(const 数值& v, Decimal96& out);

// The value as a double: empty → 0; text → 文本转双精度; decimal → nearest
// double; double → itself when finite; integer → exact. False when not
// possible (non-numeric text, overflow, NaN or infinity).
bool 转双精度(const 数值& v, double& out);

// True when the value reads as numeric zero (either sign). Empty is zero;
// text that is not a number is not zero.
bool 是零(const 数值& v);

// The sign of the value's numeric reading: -1, 0, 1. Text that is not a
// number gives 0.
int 符号(const 数值& v);

enum class 运算符 : std::uint8_t { 加, 减, 乘, 除 };

// a op b by the kind rules above. Division by zero fails in both kinds.
// A decimal result is rounded half-even as Decimal96 does; a decimal
// product or quotient too small to hold becomes 0 without failing (the
// guards test for that).
bool 数值运算(const 数值& a, 运算符 op, const 数值& b, 数值& out);
inline bool 数值加(const 数值& a, const 数值& b, 数值& out) { return 数值运算(a, 运算符::加, b, out); }
inline bool 数值减(const 数值& a, const 数值& b, 数值& out) { return 数值运算(a, 运算符::减, b, out); }
inline bool 数值乘(const 数值& a, const 数值& b, 数值& out) { return 数值运算(a, 运算符::乘, b, out); }
inline bool 数值除(const 数值& a, const 数值& b, 数值& out) { return 数值运算(a, 运算符::除, b, out); }

// Comparison: `out` is -1, 0 or 1. Text with text (both of the text kind)
// compares by UTF-16 code unit, case sensitive. Everything else compares by
// numeric value across kinds: a double against a decimal is first converted
// to decimal (15-digit rule); a double beyond the decimal range compares as
// a double. False when one side is text that is not a number.
bool 数值比较(const 数值& a, const 数值& b, int& out);
