// Tests of the 96-bit scaled decimal: text both ways, doubles both ways,
// the four operations, comparison and rounding, with fixed cases at the
// edges and a randomised comparison against a slow decimal-string model.
#include "numeric/decimal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>

namespace {

using S = Decimal96::Status;
using R = Decimal96::Rounding;

const char* statusName(S s) {
    switch (s) {
    case S::Ok: return "Ok";
    case S::Overflow: return "Overflow";
    case S::DivideByZero: return "DivideByZero";
    case S::Invalid: return "Invalid";
    }
    return "?";
}

Decimal96 dec(const char* text) {
    Decimal96 d;
    S s = Decimal96::fromText(QString::fromUtf8(text), d);
    EXPECT_EQ(s, S::Ok) << "cannot read " << text;
    return d;
}

// Text of an outcome: the decimal's text, or the status name.
std::string outcome(S s, const Decimal96& d) {
    if (s != S::Ok) return statusName(s);
    return d.toText().toStdString();
}

// ---------------------------------------------------------------------------
// Text → decimal

struct TextCase { const char* in; const char* want; int scale; };   // scale -1: not checked

TEST(DecimalText, ReadsAndRounds) {
    const TextCase cases[] = {
        {"0", "0", 0},
        {"-0", "0", 0},
        {"  12.50  ", "12.5", 2},
        {"+7", "7", 0},
        {".5", "0.5", 1},
        {"5.", "5", 0},
        {"007.100", "7.1", 3},
        {"1.5E+3", "1500", 0},
        {"1.5e3", "1500", 0},
        {"15E-1", "1.5", 1},
        {"0.0015e3", "1.5", 1},
        {"1E+28", "10000000000000000000000000000", 0},
        {"1E-28", "0.0000000000000000000000000001", 28},
        {"1.2345678901234567890123456789", "1.2345678901234567890123456789", 28},
        // 29 significant digits that do not fit 96 bits at scale 28: one is rounded away
        {"9.9999999999999999999999999999", "10", 27},
        {"9.99999999999999999999999999949", "9.999999999999999999999999999", 27},
        {"1.0000000000000000000000000000000", "1", 28},   // typed zeros set the scale, within 28
        {"79228162514264337593543950335", "79228162514264337593543950335", 0},
        {"79228162514264337593543950334.5", "79228162514264337593543950334", 0},     // tie, even
        {"79228162514264337593543950334.5000001", "79228162514264337593543950335", 0},
        {"79228162514264337593543950335.4999999", "79228162514264337593543950335", 0},
        {"7922816251426433759354395033.45", "7922816251426433759354395033.4", 1},  // tie, even
        {"7922816251426433759354395033.35", "7922816251426433759354395033.4", 1},  // tie, even
        {"7922816251426433759354395033.55", "7922816251426433759354395034", 0},    // .6 would need 2^96
        {"7922816251426433759354395033.450000000000000000001", "7922816251426433759354395033.5", 1},
        {"0.00000000000000000000000000005", "0", 28},                  // tie at the last place, even
        {"0.000000000000000000000000000051", "0.0000000000000000000000000001", 28},
        {"0.00000000000000000000000000015", "0.0000000000000000000000000002", 28},
        {"0.00000000000000000000000000025", "0.0000000000000000000000000002", 28},
        {"0.000000000000000000000000000049999", "0", -1},
        {"1E-29", "0", -1},
        {"1e-999999", "0", -1},
        {"0E+999999", "0", -1},
        {"0.000000000000000000000000000099999999999", "0.0000000000000000000000000001", 28},
        {"12345678901234567890.123456789012345", "12345678901234567890.123456789", 9},
        {"999999999999999999999999999.95", "1000000000000000000000000000", 1},
        {"99999999999999999999999999.995", "100000000000000000000000000", 2},
        {"99999999999999999999999999999.4", "Overflow", -1},            // 30 integer digits
        {"79228162514264337593543950335.5", "Overflow", -1},
        {"79228162514264337593543950336", "Overflow", -1},
        {"1E+29", "Overflow", -1},
        {"1e999999", "Overflow", -1},
        {"1e99999999999999999999999999", "Overflow", -1},
        {"1e-99999999999999999999999999", "0", -1},
        {"", "Invalid", -1},
        {"   ", "Invalid", -1},
        {"E", "Invalid", -1},
        {"1E", "Invalid", -1},
        {"1E+", "Invalid", -1},
        {".", "Invalid", -1},
        {"-", "Invalid", -1},
        {"--1", "Invalid", -1},
        {"+-1", "Invalid", -1},
        {"1.2.3", "Invalid", -1},
        {"1 2", "Invalid", -1},
        {"1e5.5", "Invalid", -1},
        {"\t1", "Invalid", -1},
        {"0x10", "Invalid", -1},
        {"1,5", "Invalid", -1},
        {"\xef\xbc\x91", "Invalid", -1},   // full-width digit one
        {"1\xef\xbc\x90", "Invalid", -1},
        {"Infinity", "Invalid", -1},
        {"nan", "Invalid", -1},
    };
    for (const auto& c : cases) {
        Decimal96 d;
        S s = Decimal96::fromText(QString::fromUtf8(c.in), d);
        EXPECT_EQ(outcome(s, d), c.want) << "input \"" << c.in << "\"";
        if (s == S::Ok && c.scale >= 0) {
            EXPECT_EQ(d.scale(), c.scale) << "input \"" << c.in << "\"";
        }
    }
}

TEST(DecimalText, HostileInputNeverHangsOrOverflows) {
    Decimal96 d;
    // Ten thousand digits: leading ones kept, the rest rounds.
    QString longOnes(10000, u'1');
    EXPECT_EQ(Decimal96::fromText(longOnes, d), S::Overflow);
    QString longFraction = QStringLiteral("0.") + QString(10000, u'3');
    ASSERT_EQ(Decimal96::fromText(longFraction, d), S::Ok);
    EXPECT_EQ(d.toText(), QStringLiteral("0.") + QString(28, u'3'));
    // A tie broken only by the very last of 10 000 digits.
    QString tail = QStringLiteral("0.") + QString(27, u'0') + QStringLiteral("15") + QString(9000, u'0');
    ASSERT_EQ(Decimal96::fromText(tail, d), S::Ok);
    EXPECT_EQ(d.toText(), QStringLiteral("0.") + QString(27, u'0') + QStringLiteral("2"));
    ASSERT_EQ(Decimal96::fromText(QStringLiteral("0.") + QString(27, u'0') + QStringLiteral("25") + QString(9000, u'0') + u'1', d), S::Ok);
    EXPECT_EQ(d.toText(), QStringLiteral("0.") + QString(27, u'0') + QStringLiteral("3"));
    // Leading zeros do not count against the digits kept.
    ASSERT_EQ(Decimal96::fromText(QString(5000, u'0') + QStringLiteral("1.5"), d), S::Ok);
    EXPECT_EQ(d.toText(), QStringLiteral("1.5"));
    // Exponent digits far beyond any int: saturated, not wrapped.
    QString bigExp = QStringLiteral("1e") + QString(5000, u'9');
    EXPECT_EQ(Decimal96::fromText(bigExp, d), S::Overflow);
    QString smallExp = QStringLiteral("1e-") + QString(5000, u'9');
    ASSERT_EQ(Decimal96::fromText(smallExp, d), S::Ok);
    EXPECT_TRUE(d.isZero());
    // 4294967297 wraps to 1 in 32 bits: must not read as 1E+1.
    EXPECT_EQ(Decimal96::fromText(u"1e4294967297", d), S::Overflow);
    // An exponent that cancels a long run of zeros is applied exactly.
    ASSERT_EQ(Decimal96::fromText(QStringLiteral("0.") + QString(3000, u'0') + QStringLiteral("25e3002"), d), S::Ok);
    EXPECT_EQ(d.toText(), QStringLiteral("25"));
    // Control characters and NUL anywhere are rejected.
    const char16_t nulInside[] = {u'1', 0, u'2'};
    EXPECT_EQ(Decimal96::fromText(QStringView(nulInside, 3), d), S::Invalid);
    EXPECT_EQ(Decimal96::fromText(u"1\n", d), S::Invalid);
    double x;
    EXPECT_FALSE(文本转双精度(QStringView(nulInside, 3), x));
    EXPECT_FALSE(文本转双精度(bigExp, x));
    ASSERT_TRUE(文本转双精度(longFraction, x));
    EXPECT_EQ(x, 1.0 / 3.0);
}

// ---------------------------------------------------------------------------
// Decimal → text

TEST(DecimalText, WritesWithoutExponentOrTrailingZeros) {
    struct Case { std::uint64_t lo; std::uint32_t hi; bool neg; int scale; const char* want; };
    const Case cases[] = {
        {30, 0, false, 1, "3"},
        {5, 0, false, 1, "0.5"},
        {5, 0, true, 1, "-0.5"},
        {0, 0, true, 5, "0"},
        {100, 0, false, 0, "100"},
        {100, 0, false, 2, "1"},
        {1050, 0, false, 3, "1.05"},
        {1, 0, false, 28, "0.0000000000000000000000000001"},
        {~0ull, 0xFFFFFFFFu, false, 0, "79228162514264337593543950335"},
        {~0ull, 0xFFFFFFFFu, true, 28, "-7.9228162514264337593543950335"},
        {0, 1, false, 0, "18446744073709551616"},           // 2^64: a digit group of zeros
        {0, 1, false, 19, "1.8446744073709551616"},
        {10000000000000000000ull, 0, false, 19, "1"},
    };
    for (const auto& c : cases) {
        Decimal96 d = Decimal96::fromParts64(c.lo, c.hi, c.neg, c.scale);
        EXPECT_EQ(d.toText().toStdString(), c.want);
    }
}

// ---------------------------------------------------------------------------
// Arithmetic, fixed cases

struct OpCase { const char* a; char op; const char* b; const char* want; int scale; };

S apply(char op, const Decimal96& a, const Decimal96& b, Decimal96& r) {
    switch (op) {
    case '+': return Decimal96::add(a, b, r);
    case '-': return Decimal96::sub(a, b, r);
    case '*': return Decimal96::mul(a, b, r);
    default: return Decimal96::div(a, b, r);
    }
}

TEST(DecimalArithmetic, FixedCases) {
    const char* max = "79228162514264337593543950335";
    const OpCase cases[] = {
        // add, subtract: alignment, carries, ties at the 96-bit limit
        {"0.1", '+', "0.2", "0.3", 1},
        {"1", '+', "0.0000000000000000000000000001", "1.0000000000000000000000000001", 28},
        {"10", '+', "0.0000000000000000000000000001", "10", 27},   // 10.000…0001 rounds (tie? no: 1 below half)
        {"10", '+', "0.0000000000000000000000000005", "10", 27},   // tie, even
        {"10", '+', "0.0000000000000000000000000015", "10.000000000000000000000000002", 27},
        {"9.9999999999999999999999999999", '+', "0.0000000000000000000000000001", "10", 27},
        {max, '+', "0", max, 0},
        {max, '+', "0.4", max, 0},
        {max, '+', "0.5", "Overflow", -1},
        {max, '+', "1", "Overflow", -1},
        {"79228162514264337593543950334", '+', "0.5", "79228162514264337593543950334", 0},
        {"39614081257132168796771975168", '+', "39614081257132168796771975167", max, 0},
        {"39614081257132168796771975168", '+', "39614081257132168796771975168", "Overflow", -1},
        {"7922816251426433759354395033.5", '+', "0.05", "7922816251426433759354395034", 0},
        {"7922816251426433759354395033.5", '+', "0", "7922816251426433759354395033.5", 1},
        {"7922816251426433759354395033.5", '+', "7922816251426433759354395033.5", "15845632502852867518708790067", 0},
        {"1", '-', "1", "0", 0},
        {"-1", '-', "-1", "0", 0},
        {"-0.5", '+', "0.50", "0", 2},
        {"1", '-', "1.0000000000000000000000000001", "-0.0000000000000000000000000001", 28},
        {"-" "79228162514264337593543950335", '-', "1", "Overflow", -1},
        {"-" "79228162514264337593543950335", '+', "1", "-79228162514264337593543950334", 0},
        {"0.999999999999999999999999999", '+', "0.000000000000000000000000001", "1", 27},
        // multiply: exact, scale reduction, underflow, overflow
        {"0.00000000000001", '*', "0.00000000000001", "0.0000000000000000000000000001", 28},
        {"0.000000000000001", '*', "0.000000000000001", "0", -1},
        {"0.000000000000005", '*', "0.00000000000001", "0", -1},          // 0.5E-28: tie to even
        {"0.000000000000015", '*', "0.00000000000001", "0.0000000000000000000000000002", 28},
        {"0.000000000000025", '*', "0.00000000000001", "0.0000000000000000000000000002", 28},
        {"0.0000000000000051", '*', "0.00000000000001", "0.0000000000000000000000000001", 28},
        {"1E+20", '*', "1E+20", "Overflow", -1},
        {"1E+14", '*', "1E+14", "10000000000000000000000000000", 0},
        {max, '*', "1", max, 0},
        {max, '*', "0.1", "7922816251426433759354395033.5", 1},
        {max, '*', "0.5", "39614081257132168796771975168", 0},     // .5 needs 30 digits: tie, even
        {"79228162514264337593543950333", '*', "0.5", "39614081257132168796771975166", 0},
        {max, '*', "1.0000000000000000000000000001", "Overflow", -1},
        {"7922816251426433759354395033", '*', "1.0000000000000000000000000001", "7922816251426433759354395034", 0},
        {max, '*', "-1.5", "Overflow", -1},
        {"1.1", '*', "1.1", "1.21", 2},
        {"-2", '*', "3", "-6", 0},
        {"-2", '*', "-0.5", "1", 1},
        {"1.2345678901234567890123456789", '*', "1.2345678901234567890123456789", "1.5241578753238836750495351563", 28},
        {"3.3333333333333333333333333333", '*', "3", "10", 27},
        {"0.3333333333333333333333333333", '*', "3", "0.9999999999999999999999999999", 28},
        // divide: natural scale, exact endings, rounding, zero, overflow
        {"1", '/', "3", "0.3333333333333333333333333333", 28},
        {"2", '/', "3", "0.6666666666666666666666666667", 28},
        {"-2", '/', "3", "-0.6666666666666666666666666667", 28},
        {"1", '/', "8", "0.125", 3},
        {"1.00", '/', "4", "0.25", 2},       // natural scale 2 keeps nothing extra
        {"1.000", '/', "4", "0.25", 3},     // zeros at the natural scale stay
        {"100", '/', "0.5", "200", 0},
        {"6", '/', "2", "3", 0},
        {"6.0", '/', "2", "3", 1},
        {"1", '/', "0", "DivideByZero", -1},
        {"0", '/', "0", "DivideByZero", -1},
        {"0", '/', "7", "0", 0},
        {"10", '/', "3", "3.3333333333333333333333333333", 28},
        {"100", '/', "3", "33.333333333333333333333333333", 27},
        {max, '/', "3", "26409387504754779197847983445", 0},
        {max, '/', "0.5", "Overflow", -1},
        {max, '/', "1.0000000000000000000000000001", "79228162514264337593543950327", 0},
        {max, '/', max, "1", 0},
        {"1", '/', max, "0", 28},
        {"0.0000000000000000000000000001", '/', "3", "0", 28},
        {"0.0000000000000000000000000002", '/', "3", "0.0000000000000000000000000001", 28},
        {"0.0000000000000000000000000001", '/', "2", "0", 28},     // 0.5E-28: tie to even
        {"0.0000000000000000000000000003", '/', "2", "0.0000000000000000000000000002", 28},
        {"1", '/', "0.0000000000000000000000000001", "10000000000000000000000000000", 0},
        {"8", '/', "0.0000000000000000000000000001", "Overflow", -1},
        {"39614081257132168796771975168", '/', "0.5", "Overflow", -1},
        {"39614081257132168796771975167", '/', "0.5", "79228162514264337593543950334", 0},
        // 7.92281625142643375935439503359…: the last digit would carry to 2^96
        {"79228162514264337593543950328", '/', "9999999999999999999999999999", "7.922816251426433759354395034", 27},
        {"79228162514264337593543950334.5", '/', "1", "79228162514264337593543950334", 0},
        {"7.9228162514264337593543950335", '/', "0.7", "11.318308930609191084791992905", 27},
        {"1", '/', "7.9228162514264337593543950335", "0.1262177448353618888658765704", 28},
        {"18446744073709551616", '/', "18446744073709551617", "0.9999999999999999999457898914", 28},
    };
    for (const auto& c : cases) {
        Decimal96 r;
        S s = apply(c.op, dec(c.a), dec(c.b), r);
        EXPECT_EQ(outcome(s, r), c.want) << c.a << ' ' << c.op << ' ' << c.b;
        if (s == S::Ok && c.scale >= 0) {
            EXPECT_EQ(r.scale(), c.scale) << c.a << ' ' << c.op << ' ' << c.b;
        }
    }
}

TEST(DecimalArithmetic, OutputUntouchedOnFailure) {
    Decimal96 r = dec("42.5");
    EXPECT_EQ(Decimal96::mul(dec("1E+20"), dec("1E+20"), r), S::Overflow);
    EXPECT_EQ(Decimal96::div(dec("1"), dec("0"), r), S::DivideByZero);
    EXPECT_EQ(r.toText(), QStringLiteral("42.5"));
}

// ---------------------------------------------------------------------------
// Comparison

TEST(DecimalCompare, AcrossScalesAndSignedZeros) {
    struct Case { const char* a; const char* b; int want; };
    const Case cases[] = {
        {"1", "1.0000000000000000000000000000", 0},
        {"0", "-0", 0},
        {"-0.000", "0", 0},
        {"-0", "0.0000000000000000000000000001", -1},
        {"-0.0000000000000000000000000001", "0", -1},
        {"2", "10", -1},
        {"-2", "-10", 1},
        {"0.5", "0.4999999999999999999999999999", 1},
        {"0.5", "0.49999999999999999999999999999", 0},   // 29 places round to 0.5
        {"79228162514264337593543950335", "7.9228162514264337593543950335", 1},
        {"7922816251426433759354395033.5", "7922816251426433759354395033.50", 0},
        {"79228162514264337593543950335", "79228162514264337593543950334", 1},
        {"-79228162514264337593543950335", "-79228162514264337593543950334", -1},
        {"1E+28", "0.0000000000000000000000000001", 1},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Decimal96::compare(dec(c.a), dec(c.b)), c.want) << c.a << " vs " << c.b;
        EXPECT_EQ(Decimal96::compare(dec(c.b), dec(c.a)), -c.want) << c.b << " vs " << c.a;
    }
}

// ---------------------------------------------------------------------------
// Rounding helpers

TEST(DecimalRounding, Modes) {
    struct Case { const char* in; int places; R mode; const char* want; };
    const Case cases[] = {
        {"2.5", 0, R::HalfEven, "2"},
        {"3.5", 0, R::HalfEven, "4"},
        {"2.5", 0, R::HalfAwayFromZero, "3"},
        {"-2.5", 0, R::HalfAwayFromZero, "-3"},
        {"-2.5", 0, R::HalfEven, "-2"},
        {"-2.9", 0, R::TowardZero, "-2"},
        {"1.005", 2, R::HalfAwayFromZero, "1.01"},
        {"1.0049999", 2, R::HalfAwayFromZero, "1"},
        {"0.4", 0, R::HalfAwayFromZero, "0"},
        {"7.9228162514264337593543950335", 0, R::HalfEven, "8"},
        {"7.9228162514264337593543950335", 27, R::HalfEven, "7.922816251426433759354395034"},
        {"79228162514264337593543950335", 0, R::HalfEven, "79228162514264337593543950335"},
        {"0.0000000000000000000000000005", 27, R::HalfEven, "0"},
        {"0.0000000000000000000000000015", 27, R::HalfEven, "0.000000000000000000000000002"},
        {"1.23", 5, R::HalfEven, "1.23"},
        {"1.25", -3, R::HalfAwayFromZero, "1"},   // places clamped to 0
    };
    for (const auto& c : cases)
        EXPECT_EQ(dec(c.in).rounded(c.places, c.mode).toText().toStdString(), c.want) << c.in << " to " << c.places;
    EXPECT_EQ(dec("-7.9").truncated().toText(), QStringLiteral("-7"));
    EXPECT_EQ(dec("-7.9").truncated().scale(), 0);
}

TEST(DecimalRounding, Helpers) {
    struct Case { const char* in; int mantissaDigits; int integerDigits; int normScale; };
    const Case cases[] = {
        {"0", 1, 0, 0},
        {"1.50", 3, 1, 1},
        {"123.4", 4, 3, 1},
        {"0.7", 1, 0, 1},
        {"100", 3, 3, 0},
        {"79228162514264337593543950335", 29, 29, 0},
        {"7.9228162514264337593543950335", 29, 1, 28},
        {"1.0000000000000000000000000000", 29, 1, 0},
    };
    for (const auto& c : cases) {
        Decimal96 d = dec(c.in);
        EXPECT_EQ(d.mantissaDigits(), c.mantissaDigits) << c.in;
        EXPECT_EQ(d.integerDigits(), c.integerDigits) << c.in;
        EXPECT_EQ(d.normalized().scale(), c.normScale) << c.in;
        EXPECT_EQ(Decimal96::compare(d.normalized(), d), 0) << c.in;
    }
    struct IntCase { const char* in; bool ok; std::int64_t want; };
    const IntCase ints[] = {
        {"42", true, 42}, {"-42.000", true, -42}, {"42.5", false, 0},
        {"9223372036854775807", true, INT64_MAX}, {"9223372036854775808", false, 0},
        {"-9223372036854775808", true, INT64_MIN}, {"-9223372036854775809", false, 0},
    };
    for (const auto& c : ints) {
        std::int64_t v = 7;
        EXPECT_EQ(dec(c.in).toInt64(v), c.ok) << c.in;
        EXPECT_EQ(v, c.ok ? c.want : 7) << c.in;
    }
    // A scale out of range is clamped, never used as a table index.
    EXPECT_EQ(Decimal96::fromParts64(5, 0, false, 40).scale(), 28);
    EXPECT_EQ(Decimal96::fromParts(5, 0, 0, false, -3).scale(), 0);
    for (std::int64_t v : {std::int64_t(0), std::int64_t(-1), INT64_MIN, INT64_MAX}) {
        std::int64_t back = 0;
        ASSERT_TRUE(Decimal96::fromInt64(v).toInt64(back));
        EXPECT_EQ(back, v);
    }
}

// ---------------------------------------------------------------------------
// Doubles

TEST(DecimalDouble, FifteenDigitRule) {
    struct Case { double in; const char* want; };
    const Case cases[] = {
        {0.1, "0.1"},
        {1.0 / 3.0, "0.333333333333333"},
        {2.0 / 3.0, "0.666666666666667"},
        {-0.1 - 0.2, "-0.3"},
        {123456789012345678.0, "123456789012346000"},
        {1e-28, "0.0000000000000000000000000001"},
        {1.5e-28, "0.0000000000000000000000000002"},
        {2.5e-28, "0.0000000000000000000000000002"},
        {0.6e-28, "0.0000000000000000000000000001"},
        {0.5e-28, "0"},
        {9e-30, "0"},
        {0.0, "0"},
        {-0.0, "0"},
        {7.92281625142642e28, "79228162514264200000000000000"},
        {79228162514264337593543950336.0, "Overflow"},   // 2^96
        {1e29, "Overflow"},
        {-1e300, "Overflow"},
        {INFINITY, "Invalid"},
        {NAN, "Invalid"},
    };
    for (const auto& c : cases) {
        Decimal96 d;
        S s = Decimal96::fromDouble(c.in, d);
        EXPECT_EQ(outcome(s, d), c.want) << "double " << c.in;
    }
    // The largest double below 2^96 still rounds into range.
    Decimal96 d;
    EXPECT_EQ(Decimal96::fromDouble(std::nextafter(79228162514264337593543950336.0, 0.0), d), S::Ok);
}

TEST(DecimalDouble, NearestDouble) {
    const char* texts[] = {
        "0.1", "0.3333333333333333333333333333", "79228162514264337593543950335",
        "-7.9228162514264337593543950335", "0.0000000000000000000000000001",
        "9007199254740993", "9007199254740995", "1.7976931348623157", "123456.789",
        "0.30000000000000004", "18446744073709551615.5",
    };
    for (const char* t : texts) {
        double want = std::strtod(t, nullptr);
        EXPECT_EQ(dec(t).toDouble(), want) << t;
    }
    EXPECT_EQ(Decimal96::fromParts64(0, 0, true, 3).toDouble(), 0.0);
}

TEST(DecimalDouble, TextOfDouble) {
    struct Case { double in; const char* want; };
    const Case cases[] = {
        {1e15, "1E+15"},
        {1.5e-16, "1.5E-16"},
        {1.0 / 30.0, "3.33333333333333E-02"},
        {1.0 / 3.0, "0.333333333333333"},
        {0.1, "0.1"},
        {0.1 + 0.2, "0.3"},
        {123456789012345678.0, "1.23456789012346E+17"},
        {-0.000001, "-0.000001"},
        {999999999999999.0, "999999999999999"},
        {999999999999999.9, "1E+15"},
        {123456789012.345678, "123456789012.346"},
        {-2.5, "-2.5"},
        {1e100, "1E+100"},
        {-1.25e-300, "-1.25E-300"},
        {0.000000000000001, "0.000000000000001"},
        {0.0000000000000015, "1.5E-15"},
        {100.0, "100"},
        {0.0, "0"},
        {-0.0, "0"},
        {5e-324, "4.94065645841247E-324"},
        {INFINITY, "Infinity"},
    };
    for (const auto& c : cases) EXPECT_EQ(双精度文本(c.in).toStdString(), c.want) << "double " << c.in;
}

TEST(DecimalDouble, TextToDouble) {
    struct Case { const char* in; bool ok; double want; };
    const Case cases[] = {
        {"0.1", true, 0.1},
        {" -2.5e-3 ", true, -0.0025},
        {"1E+15", true, 1e15},
        {"3.33333333333333E-02", true, 3.33333333333333e-02},
        {"9007199254740993", true, 9007199254740992.0},                // tie, even
        {"9007199254740993.000000000000000000001", true, 9007199254740994.0},
        {"1e308", true, 1e308},
        {"1e309", false, 0},
        {"2.4703282292062328e-324", true, 5e-324},
        {"2.4703282292062327e-324", true, 0.0},
        {"1e-400", true, 0.0},
        {".", false, 0}, {"", false, 0}, {"1e", false, 0}, {"1..2", false, 0}, {"inf", false, 0},
    };
    for (const auto& c : cases) {
        double v = -99;
        EXPECT_EQ(文本转双精度(QString::fromUtf8(c.in), v), c.ok) << c.in;
        if (c.ok) {
            EXPECT_EQ(v, c.want) << c.in;
        }
    }
    // Round trip of the text form of many doubles: 15 digits read back
    // within half a unit of the 15th digit.
    std::mt19937_64 rng(7);
    for (int i = 0; i < 2000; ++i) {
        double x = std::ldexp(double(rng() >> 11), int(rng() % 200) - 150);
        double back = 0;
        ASSERT_TRUE(文本转双精度(双精度文本(x), back)) << x;
        EXPECT_LE(std::fabs(back - x), std::fabs(x) * 5.1e-15) << x;
    }
}

// ---------------------------------------------------------------------------
// Randomised comparison with a slow model over decimal digit strings.
//
// The model knows nothing of 96-bit words: an unsigned integer is a string
// of decimal digits without leading zeros, and the rules are applied in
// their plainest form (try scale after scale, divide digit by digit).

namespace model {

std::string strip(std::string s) {
    size_t i = 0;
    while (i + 1 < s.size() && s[i] == '0') ++i;
    return s.substr(i);
}

int cmp(const std::string& a, const std::string& b) {
    if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
    int c = a.compare(b);
    return c < 0 ? -1 : (c > 0 ? 1 : 0);
}

std::string add(const std::string& a, const std::string& b) {
    std::string r;
    int carry = 0;
    for (size_t i = 0; i < std::max(a.size(), b.size()) || carry; ++i) {
        int d = carry;
        if (i < a.size()) d += a[a.size() - 1 - i] - '0';
        if (i < b.size()) d += b[b.size() - 1 - i] - '0';
        r.insert(r.begin(), char('0' + d % 10));
        carry = d / 10;
    }
    return strip(r);
}

std::string sub(const std::string& a, const std::string& b) {   // a >= b
    std::string r = a;
    int borrow = 0;
    for (size_t i = 0; i < a.size(); ++i) {
        int d = (a[a.size() - 1 - i] - '0') - borrow - (i < b.size() ? b[b.size() - 1 - i] - '0' : 0);
        borrow = d < 0;
        if (d < 0) d += 10;
        r[a.size() - 1 - i] = char('0' + d);
    }
    return strip(r);
}

std::string mul(const std::string& a, const std::string& b) {
    std::vector<int> acc(a.size() + b.size(), 0);
    for (size_t i = 0; i < a.size(); ++i)
        for (size_t j = 0; j < b.size(); ++j)
            acc[i + j + 1] += (a[i] - '0') * (b[j] - '0');
    for (size_t k = acc.size() - 1; k > 0; --k) { acc[k - 1] += acc[k] / 10; acc[k] %= 10; }
    std::string r;
    for (int d : acc) r += char('0' + d);
    return strip(r);
}

std::string shift(const std::string& a, int zeros) { return a == "0" ? a : a + std::string(zeros, '0'); }

// Long division: quotient and remainder.
void divmod(const std::string& n, const std::string& d, std::string& q, std::string& r) {
    q.clear();
    r = "0";
    for (char c : n) {
        r = strip(r + c);
        int digit = 0;
        while (cmp(r, d) >= 0) { r = sub(r, d); ++digit; }
        q += char('0' + digit);
    }
    q = strip(q);
}

const std::string kMax = "79228162514264337593543950335";

struct Num { std::string m; int scale; bool neg; bool ok; std::string status; };

// Round m / 10^k half-even (k may exceed the digits).
std::string roundDrop(const std::string& m, int k) {
    if (k == 0) return m;
    std::string padded = m.size() < size_t(k) + 1 ? std::string(k + 1 - m.size(), '0') + m : m;
    std::string q = strip(padded.substr(0, padded.size() - k));
    std::string rest = padded.substr(padded.size() - k);
    std::string half = "5" + std::string(k - 1, '0');
    int c = rest.compare(half);
    bool odd = (q.back() - '0') % 2 == 1;
    if (c > 0 || (c == 0 && odd)) q = add(q, "1");
    return q;
}

// The fewest digits dropped so that the result fits 96 bits and scale 28.
Num fit(const std::string& m, int scale, bool neg) {
    for (int k = std::max(0, scale - 28);; ++k) {
        if (scale - k < 0) return {"", 0, false, false, "Overflow"};
        std::string q = roundDrop(m, k);
        if (cmp(q, kMax) <= 0) return {q, scale - k, neg, true, "Ok"};
    }
}

Num addSigned(const Num& a, const Num& b) {
    int scale = std::max(a.scale, b.scale);
    std::string x = shift(a.m, scale - a.scale), y = shift(b.m, scale - b.scale);
    if (a.neg == b.neg) return fit(add(x, y), scale, a.neg);
    int c = cmp(x, y);
    if (c == 0) return {"0", scale, false, true, "Ok"};
    return c > 0 ? fit(sub(x, y), scale, a.neg) : fit(sub(y, x), scale, b.neg);
}

Num multiply(const Num& a, const Num& b) { return fit(mul(a.m, b.m), a.scale + b.scale, a.neg != b.neg); }

Num divide(const Num& a, const Num& b) {
    if (b.m == "0") return {"", 0, false, false, "DivideByZero"};
    bool neg = a.neg != b.neg;
    int natural = a.scale - b.scale;
    // quotient at scale t: a.m * 10^(t - natural) / b.m
    auto at = [&](int t, std::string& q, std::string& r) { divmod(shift(a.m, t - natural), b.m, q, r); };
    int t = std::max(natural, 0);
    std::string q, r;
    at(t, q, r);
    if (cmp(q, kMax) > 0) return {"", 0, false, false, "Overflow"};
    while (r != "0" && t < 28) {
        std::string q2, r2;
        at(t + 1, q2, r2);
        if (cmp(q2, kMax) > 0) break;
        q = q2; r = r2; ++t;
    }
    if (r == "0") return {q, t, neg, true, "Ok"};
    // Half-even by the remainder: 2r against the divisor.
    int c = cmp(add(r, r), b.m);
    bool odd = (q.back() - '0') % 2 == 1;
    std::string rq = (c > 0 || (c == 0 && odd)) ? add(q, "1") : q;
    if (cmp(rq, kMax) <= 0) return {rq, t, neg, true, "Ok"};
    // The rounding carried past 96 bits: one digit less, from the exact value.
    if (t - 1 < std::max(natural, 0)) return {"", 0, false, false, "Overflow"};
    at(t - 1, q, r);
    c = cmp(add(r, r), b.m);
    odd = (q.back() - '0') % 2 == 1;
    if (c > 0 || (c == 0 && odd)) q = add(q, "1");
    return {q, t - 1, neg, true, "Ok"};
}

std::string u64Text(std::uint64_t v) { return std::to_string(v); }

Num of(const Decimal96& d) {
    std::string m = add(mul(u64Text(d.hi()), "18446744073709551616"), u64Text(d.lo64()));
    return {m, d.scale(), d.negative(), true, "Ok"};
}

std::string show(const Num& n) {
    if (!n.ok) return n.status;
    return (n.neg && n.m != "0" ? "-" : "") + n.m + "e-" + std::to_string(n.scale);
}

}  // namespace model

Decimal96 fromModel(const std::string& m, int scale, bool neg) {
    unsigned __int128 v = 0;
    for (char c : m) v = v * 10 + unsigned(c - '0');
    return Decimal96::fromParts64(std::uint64_t(v), std::uint32_t(v >> 64), neg, scale);
}

std::string showResult(S s, const Decimal96& d) {
    if (s != S::Ok) return statusName(s);
    return model::show(model::of(d));
}

// Random operands biased toward the edges: every digit count 1..29, with
// runs of 9s and 0s, the maximum itself, and every scale 0..28.
struct Gen {
    std::mt19937_64 rng;
    explicit Gen(std::uint64_t seed) : rng(seed) {}
    int pick(int n) { return int(rng() % std::uint64_t(n)); }
    Decimal96 next() {
        std::string m;
        int kind = pick(10);
        int len = 1 + pick(29);
        if (kind == 0) {
            m = model::kMax;
        } else if (kind == 1) {
            m = std::string(len, '9');
        } else if (kind == 2) {
            m = "1" + std::string(len - 1, '0');
        } else if (kind == 3) {
            m = std::to_string(pick(20));
        } else if (kind == 4) {
            m = "5" + std::string(len - 1, '0');
        } else {
            for (int i = 0; i < len; ++i) m += char('0' + pick(10));
        }
        m = model::strip(m);
        if (model::cmp(m, model::kMax) > 0) m = m.substr(1);   // 28 digits always fit
        m = model::strip(m.empty() ? "0" : m);
        int scale = pick(4) == 0 ? 28 - pick(3) : pick(29);
        return fromModel(m, scale, pick(2) == 1);
    }
};

TEST(DecimalDifferential, AgainstDigitStringModel) {
    Gen g(20240229);
    int failures = 0;
    for (int i = 0; i < 6000 && failures < 20; ++i) {
        Decimal96 a = g.next(), b = g.next();
        model::Num ma = model::of(a), mb = model::of(b);
        model::Num nb = mb;
        nb.neg = !nb.neg;
        struct { char op; model::Num want; } checks[] = {
            {'+', model::addSigned(ma, mb)},
            {'-', model::addSigned(ma, nb)},
            {'*', model::multiply(ma, mb)},
            {'/', model::divide(ma, mb)},
        };
        for (const auto& c : checks) {
            Decimal96 r;
            S s = apply(c.op, a, b, r);
            std::string got = showResult(s, r), want = model::show(c.want);
            if (got != want) {
                ++failures;
                ADD_FAILURE() << model::show(ma) << ' ' << c.op << ' ' << model::show(mb) << ": got " << got
                              << ", want " << want;
            }
        }
        // Comparison by the exact aligned values.
        int scale = std::max(ma.scale, mb.scale);
        std::string x = model::shift(ma.m, scale - ma.scale), y = model::shift(mb.m, scale - mb.scale);
        int sx = x == "0" ? 0 : (ma.neg ? -1 : 1), sy = y == "0" ? 0 : (mb.neg ? -1 : 1);
        int want = sx != sy ? (sx < sy ? -1 : 1) : (sx >= 0 ? model::cmp(x, y) : -model::cmp(x, y));
        EXPECT_EQ(Decimal96::compare(a, b), want) << model::show(ma) << " <=> " << model::show(mb);
        // Text round trip and the nearest double.
        Decimal96 back;
        ASSERT_EQ(Decimal96::fromText(a.toText(), back), S::Ok);
        EXPECT_EQ(Decimal96::compare(a, back), 0) << model::show(ma);
        EXPECT_EQ(a.toDouble(), std::strtod(a.toText().toUtf8().constData(), nullptr)) << model::show(ma);
    }
}

TEST(DecimalDifferential, TextReadingAgainstModel) {
    // Random digit strings with a point and an exponent: the model takes
    // every digit, aligns, and fits.
    Gen g(99);
    for (int i = 0; i < 4000; ++i) {
        int len = 1 + g.pick(45);
        std::string digits;
        for (int k = 0; k < len; ++k) digits += char('0' + (g.pick(5) == 0 ? 9 : g.pick(10)));
        int point = g.pick(len + 1);
        int exp = g.pick(70) - 35;
        std::string text = digits.substr(0, point) + "." + digits.substr(point) + "e" + std::to_string(exp);
        int scale = (len - point) - exp;   // value = digits × 10^-scale
        std::string m = model::strip(digits);
        model::Num want;
        if (scale < 0) {
            m = model::shift(m, -scale);
            want = model::cmp(m, model::kMax) > 0 ? model::Num{"", 0, false, false, "Overflow"}
                                                   : model::Num{m, 0, false, true, "Ok"};
        } else {
            want = model::fit(m, scale, false);
        }
        Decimal96 d;
        S s = Decimal96::fromText(QString::fromStdString(text), d);
        // Compare values (the scale of a read number may keep its trailing zeros).
        std::string got = s == S::Ok ? model::show(model::of(d.normalized())) : statusName(s);
        std::string w = want.ok ? model::show(model::of(fromModel(want.m, want.scale, false).normalized())) : want.status;
        EXPECT_EQ(got, w) << text;
    }
}

}  // namespace
