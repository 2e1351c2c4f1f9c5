// The 96-bit scaled decimal: sign, unsigned 96-bit mantissa, scale 0..28.
// value = (negative ? -1 : 1) * mantissa / 10^scale.
//
// Magnitudes lie between 1E-28 and 79228162514264337593543950335
// (about 7.9228162514264337593543950335E+28), with 28 to 29 significant
// digits; nothing smaller than 1E-28 exists but zero. A zero may carry
// either sign and compares equal to zero.
//
// Every operation here is exact or rounds to nearest, ties to even, with
// every discarded digit taken into account (192-bit intermediates). None
// throws; each says through its Status how it ended, and leaves `out`
// untouched unless the status is Ok.
#pragma once

#include <QString>
#include <QStringView>
#include <cstdint>

class Decimal96 {
public:
    enum class Status : std::uint8_t {
        Ok,
        Overflow,       // the magnitude does not fit 96 bits at scale 0
        DivideByZero,
        Invalid,        // text that is not a number; NaN or infinite double
    };

    static constexpr int kMaxScale = 28;

    constexpr Decimal96() = default;   // +0, scale 0

    // Raw construction; scale is clamped into 0..28 (anything else is a
    // caller's bug, but must not reach the tables indexed by scale).
    static constexpr Decimal96 fromParts(std::uint32_t lo, std::uint32_t mid, std::uint32_t hi,
                                         bool negative, int scale) {
        Decimal96 d;
        d.lo64_ = (std::uint64_t(mid) << 32) | lo; d.hi_ = hi; d.neg_ = negative;
        d.scale_ = static_cast<std::uint8_t>(scale < 0 ? 0 : scale > kMaxScale ? kMaxScale : scale);
        return d;
    }
    // The same from the low 64 and high 32 bits of the mantissa.
    static constexpr Decimal96 fromParts64(std::uint64_t lo64, std::uint32_t hi,
                                           bool negative, int scale) {
        Decimal96 d;
        d.lo64_ = lo64; d.hi_ = hi; d.neg_ = negative;
        d.scale_ = static_cast<std::uint8_t>(scale < 0 ? 0 : scale > kMaxScale ? kMaxScale : scale);
        return d;
    }
    // Exact, scale 0; never fails (every int64 fits 96 bits).
    static Decimal96 fromInt64(std::int64_t v);

    std::uint32_t lo() const { return static_cast<std::uint32_t>(lo64_); }
    std::uint32_t mid() const { return static_cast<std::uint32_t>(lo64_ >> 32); }
    std::uint32_t hi() const { return hi_; }
    std::uint64_t lo64() const { return lo64_; }
    bool negative() const { return neg_; }
    int scale() const { return scale_; }
    bool isZero() const { return (lo64_ | hi_) == 0; }
    // -1, 0 or 1; a zero of either sign gives 0.
    int sign() const { return isZero() ? 0 : (neg_ ? -1 : 1); }
    Decimal96 negated() const { Decimal96 d = *this; d.neg_ = !d.neg_; return d; }
    Decimal96 abs() const { Decimal96 d = *this; d.neg_ = false; return d; }

    // Text → decimal. Accepts, after blanks at both ends: optional sign,
    // digits with at most one ".", optional exponent E/e with optional sign
    // and digits; at least one mantissa digit. Keeps as many leading
    // significant digits as fit 96 bits within scale 28, rounds the rest
    // to nearest, ties to even. The exponent is applied exactly ("1.5E+3"
    // is 1500). |x| >= 79228162514264337593543950335.5 → Overflow;
    // |x| < 0.5E-28 → zero. Any other shape → Invalid.
    static Status fromText(QStringView text, Decimal96& out);

    // Double → decimal by the 15-digit rule: the double is first rounded to
    // 15 significant decimal digits (nearest, ties to even), trailing zeros
    // dropped, then placed at scale <= 28 (digits past the 28th place
    // rounded away, ties to even). |d| >= 7.9228162514264337593543950335E+28
    // → Overflow; |d| < 1E-29 → zero; NaN/inf → Invalid.
    static Status fromDouble(double d, Decimal96& out);

    // The nearest double (correctly rounded).
    double toDouble() const;

    // Text: optional "-", integer digits (at least one), and if the
    // fraction is not zero "." and its digits without trailing zeros.
    // Never an exponent. A negative zero reads "0".
    QString toText() const;

    // Exact or rounded half-even arithmetic; Overflow when the result
    // needs scale below 0; a product or quotient too small becomes zero
    // without any failure.
    static Status add(const Decimal96& a, const Decimal96& b, Decimal96& out);
    static Status sub(const Decimal96& a, const Decimal96& b, Decimal96& out);
    static Status mul(const Decimal96& a, const Decimal96& b, Decimal96& out);
    static Status div(const Decimal96& a, const Decimal96& b, Decimal96& out);

    // -1, 0, 1 by numeric value (scale and sign of zero ignored).
    static int compare(const Decimal96& a, const Decimal96& b);

    // Round to `decimals` places (0..28), half away from zero or half to
    // even; never fails (the result never needs more digits than the input).
    enum class Rounding : std::uint8_t { HalfAwayFromZero, HalfEven, TowardZero };
    // decimals outside 0..28 are clamped into it. A value rounded to zero
    // keeps its sign (it still reads "0" and compares equal to zero).
    Decimal96 rounded(int decimals, Rounding mode) const;

    // The integer part, cut toward zero, at scale 0 (-7.9 → -7, 0.5 → 0).
    Decimal96 truncated() const { return rounded(0, Rounding::TowardZero); }

    // The same value with trailing zeros of the fraction dropped (1.500 at
    // scale 3 → 1.5 at scale 1; 100 stays 100 at scale 0).
    Decimal96 normalized() const;

    // Decimal digits of the mantissa, 1 for zero (1.50 at scale 2 → 3).
    int mantissaDigits() const;

    // Digits of the integer part, 0 when it is zero (123.4 → 3, 0.7 → 0).
    int integerDigits() const;

    // The value as int64 when it is an integer (scale or trailing zeros
    // aside) in range; false otherwise and `out` untouched.
    bool toInt64(std::int64_t& out) const;

    // Operands of one scale and sign compare by their mantissas in place
    // (the loops of the powers ask this a few hundred times a power); the
    // rest, and zeros of either sign, go to compare().
    friend bool operator==(const Decimal96& a, const Decimal96& b) {
        if (a.scale_ == b.scale_ && a.neg_ == b.neg_) return a.lo64_ == b.lo64_ && a.hi_ == b.hi_;
        return compare(a, b) == 0;
    }
    friend bool operator<(const Decimal96& a, const Decimal96& b) {
        if (a.scale_ == b.scale_ && !a.neg_ && !b.neg_)
            return a.hi_ != b.hi_ ? a.hi_ < b.hi_ : a.lo64_ < b.lo64_;
        return compare(a, b) < 0;
    }

private:
    friend struct Decimal96Access;   // unchecked construction inside decimal.cpp
    std::uint64_t lo64_ = 0;   // mantissa bits 0..63
    std::uint32_t hi_ = 0;     // mantissa bits 64..95
    bool neg_ = false;
    std::uint8_t scale_ = 0;
};

// Text → double, the same grammar as Decimal96::fromText (blanks at both
// ends, optional sign, digits with at most one ".", optional exponent).
// Gives the nearest double. False for any other shape, and for a magnitude
// that overflows to infinity. Never reports.
bool 文本转双精度(QStringView text, double& out);

// Text of a double: at most 15 significant digits, rounded half-even on the
// decimal expansion, no trailing zeros, "-" if negative. Plain form while
// |d| < 1E+15 and at most 15 places behind the point are needed; otherwise
// d.dddE+xx / d.dddE-xx with at least two exponent digits
// (1E+15, 1.5E-16, 3.33333333333333E-02). NaN and infinities give "NaN",
// "Infinity", "-Infinity" (never produced by the guarded code).
QString 双精度文本(double d);
