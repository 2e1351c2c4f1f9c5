// Tests of the 96-bit scaled decimal. The arithmetic and the reading of text
// are checked against a slow model over decimal digit strings, on chosen
// edge operands and on random ones; a few stated results pin the model.
#include "numeric/decimal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

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
    EXPECT_EQ(Decimal96::fromText(QString::fromUtf8(text), d), S::Ok) << "cannot read " << text;
    return d;
}

std::string outcome(S s, const Decimal96& d) { return s != S::Ok ? statusName(s) : d.toText().toStdString(); }

S apply(char op, const Decimal96& a, const Decimal96& b, Decimal96& r) {
    switch (op) {
    case '+': return Decimal96::add(a, b, r);
    case '-': return Decimal96::sub(a, b, r);
    case '*': return Decimal96::mul(a, b, r);
    default: return Decimal96::div(a, b, r);
    }
}

// ---------------------------------------------------------------------------
// The model: an unsigned integer is a string of decimal digits without
// leading zeros, and the rules are applied in their plainest form (try
// scale after scale, divide digit by digit). It knows nothing of 96 bits.

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
        r[a.size() - 1 - i] = char('0' + (d < 0 ? d + 10 : d));
    }
    return strip(r);
}

std::string mul(const std::string& a, const std::string& b) {
    std::vector<int> acc(a.size() + b.size(), 0);
    for (size_t i = 0; i < a.size(); ++i)
        for (size_t j = 0; j < b.size(); ++j) acc[i + j + 1] += (a[i] - '0') * (b[j] - '0');
    for (size_t k = acc.size() - 1; k > 0; --k) { acc[k - 1] += acc[k] / 10; acc[k] %= 10; }
    std::string r;
    for (int d : acc) r += char('0' + d);
    return strip(r);
}

std::string shift(const std::string& a, int zeros) { return a == "0" ? a : a + std::string(zeros, '0'); }

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
const Num kOverflow{"", 0, false, false, "Overflow"};

bool roundUp(const std::string& q, int c) { return c > 0 || (c == 0 && (q.back() - '0') % 2 == 1); }

// m / 10^k rounded half-even (k may exceed the digits).
std::string roundDrop(const std::string& m, int k) {
    if (k == 0) return m;
    std::string padded = m.size() < size_t(k) + 1 ? std::string(k + 1 - m.size(), '0') + m : m;
    std::string q = strip(padded.substr(0, padded.size() - k));
    int c = padded.substr(padded.size() - k).compare("5" + std::string(k - 1, '0'));
    return roundUp(q, c) ? add(q, "1") : q;
}

// The fewest digits dropped so that the result fits 96 bits and scale 28.
Num fit(const std::string& m, int scale, bool neg) {
    for (int k = std::max(0, scale - 28);; ++k) {
        if (scale - k < 0) return kOverflow;
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
    auto at = [&](int t, std::string& q, std::string& r) { divmod(shift(a.m, t - natural), b.m, q, r); };
    int t = std::max(natural, 0);
    std::string q, r;
    at(t, q, r);
    if (cmp(q, kMax) > 0) return kOverflow;
    while (r != "0" && t < 28) {
        std::string q2, r2;
        at(t + 1, q2, r2);
        if (cmp(q2, kMax) > 0) break;
        q = q2; r = r2; ++t;
    }
    if (r == "0") return {q, t, neg, true, "Ok"};
    std::string rq = roundUp(q, cmp(add(r, r), b.m)) ? add(q, "1") : q;   // half-even by the remainder
    if (cmp(rq, kMax) <= 0) return {rq, t, neg, true, "Ok"};
    // The rounding carried past 96 bits: one digit less, from the exact value.
    if (t - 1 < std::max(natural, 0)) return kOverflow;
    at(t - 1, q, r);
    return {roundUp(q, cmp(add(r, r), b.m)) ? add(q, "1") : q, t - 1, neg, true, "Ok"};
}

// The text grammar read plainly: blanks at both ends, sign, digits with one
// point, optional exponent; every digit taken, then fitted.
Num read(const std::string& text) {
    const Num invalid{"", 0, false, false, "Invalid"};
    size_t i = text.find_first_not_of(' '), e = text.find_last_not_of(' ');
    if (i == std::string::npos) return invalid;
    const std::string t = text.substr(i, e - i + 1);
    size_t k = 0;
    bool neg = false;
    if (k < t.size() && (t[k] == '+' || t[k] == '-')) neg = t[k++] == '-';
    std::string digits;
    int frac = 0;
    bool point = false;
    for (; k < t.size() && (std::isdigit(static_cast<unsigned char>(t[k])) || t[k] == '.'); ++k) {
        if (t[k] == '.') {
            if (point) return invalid;
            point = true;
        } else {
            digits += t[k];
            frac += point;
        }
    }
    if (digits.empty()) return invalid;
    long long exp = 0;
    if (k < t.size() && (t[k] == 'E' || t[k] == 'e')) {
        bool eneg = false;
        if (++k < t.size() && (t[k] == '+' || t[k] == '-')) eneg = t[k++] == '-';
        if (k == t.size()) return invalid;
        for (; k < t.size() && std::isdigit(static_cast<unsigned char>(t[k])); ++k)
            exp = std::min(exp * 10 + (t[k] - '0'), 1000000000LL);
        if (eneg) exp = -exp;
    }
    if (k != t.size()) return invalid;
    const std::string m = strip(digits);
    const long long scale = frac - exp;
    if (m == "0" || scale > 60 + static_cast<long long>(m.size())) return {"0", 0, neg, true, "Ok"};
    if (scale < 0) {
        if (-scale > 30) return kOverflow;
        std::string big = shift(m, static_cast<int>(-scale));
        return cmp(big, kMax) > 0 ? kOverflow : Num{big, 0, neg, true, "Ok"};
    }
    return fit(m, static_cast<int>(scale), neg);
}

Num of(const Decimal96& d) {
    std::string m = add(mul(std::to_string(d.hi()), "18446744073709551616"), std::to_string(d.lo64()));
    return {m, d.scale(), d.negative(), true, "Ok"};
}

// Value and scale; a zero shows without sign or scale.
std::string show(const Num& n) {
    if (!n.ok) return n.status;
    if (n.m == "0") return "0";
    return (n.neg ? "-" : "") + n.m + "e-" + std::to_string(n.scale);
}

}  // namespace model

std::string showResult(S s, const Decimal96& d) { return s != S::Ok ? statusName(s) : model::show(model::of(d)); }

Decimal96 fromModel(const std::string& m, int scale, bool neg) {
    unsigned __int128 v = 0;
    for (char c : m) v = v * 10 + unsigned(c - '0');
    return Decimal96::fromParts64(std::uint64_t(v), std::uint32_t(v >> 64), neg, scale);
}

// All four operations, the comparison, the text round trip and the
// nearest double of a and b, against the model. Returns the failures.
int checkPair(const Decimal96& a, const Decimal96& b) {
    model::Num ma = model::of(a), mb = model::of(b), nb = mb;
    nb.neg = !nb.neg;
    const struct { char op; model::Num want; } checks[] = {
        {'+', model::addSigned(ma, mb)}, {'-', model::addSigned(ma, nb)},
        {'*', model::multiply(ma, mb)},  {'/', model::divide(ma, mb)},
    };
    int failures = 0;
    for (const auto& c : checks) {
        Decimal96 r;
        const std::string got = showResult(apply(c.op, a, b, r), r), want = model::show(c.want);
        if (got != want) {
            ++failures;
            ADD_FAILURE() << model::show(ma) << ' ' << c.op << ' ' << model::show(mb) << ": got " << got << ", want " << want;
        }
    }
    int scale = std::max(ma.scale, mb.scale);
    std::string x = model::shift(ma.m, scale - ma.scale), y = model::shift(mb.m, scale - mb.scale);
    int sx = x == "0" ? 0 : (ma.neg ? -1 : 1), sy = y == "0" ? 0 : (mb.neg ? -1 : 1);
    int want = sx != sy ? (sx < sy ? -1 : 1) : (sx >= 0 ? model::cmp(x, y) : -model::cmp(x, y));
    EXPECT_EQ(Decimal96::compare(a, b), want) << model::show(ma) << " <=> " << model::show(mb);
    Decimal96 back;
    EXPECT_EQ(Decimal96::fromText(a.toText(), back), S::Ok);
    EXPECT_EQ(Decimal96::compare(a, back), 0) << model::show(ma);
    EXPECT_EQ(a.toDouble(), std::strtod(a.toText().toUtf8().constData(), nullptr)) << model::show(ma);
    return failures;
}

// Random operands biased toward the edges: every digit count 1..29, runs
// of 9s and 0s, halves, the maximum itself, and every scale 0..28.
struct Gen {
    std::mt19937_64 rng;
    explicit Gen(std::uint64_t seed) : rng(seed) {}
    int pick(int n) { return int(rng() % std::uint64_t(n)); }
    Decimal96 next() {
        std::string m;
        int kind = pick(10), len = 1 + pick(29);
        if (kind == 0) m = model::kMax;
        else if (kind == 1) m = std::string(len, '9');
        else if (kind == 2) m = "1" + std::string(len - 1, '0');
        else if (kind == 3) m = std::to_string(pick(20));
        else if (kind == 4) m = "5" + std::string(len - 1, '0');
        else for (int i = 0; i < len; ++i) m += char('0' + pick(10));
        m = model::strip(m);
        if (model::cmp(m, model::kMax) > 0) m = model::strip(m.substr(1));   // 28 digits always fit
        int scale = pick(4) == 0 ? 28 - pick(3) : pick(29);
        return fromModel(m, scale, pick(2) == 1);
    }
};

// ---------------------------------------------------------------------------

TEST(DecimalArithmetic, StatedResults) {
    // These pin the model to the stated rules.
    const struct { const char* a; char op; const char* b; const char* want; } cases[] = {
        {"0.1", '+', "0.2", "0.3"}, {"1", '/', "3", "0.3333333333333333333333333333"},
        {"2", '/', "3", "0.6666666666666666666666666667"},
        {"0.00000000000001", '*', "0.00000000000001", "0.0000000000000000000000000001"},
        {"0.000000000000001", '*', "0.000000000000001", "0"},   // too small: zero, no failure
        {"1E+20", '*', "1E+20", "Overflow"}, {"79228162514264337593543950335", '+', "0.5", "Overflow"},
        {"79228162514264337593543950334", '+', "0.5", "79228162514264337593543950334"},   // tie, even
        {"10", '+', "0.0000000000000000000000000015", "10.000000000000000000000000002"}, {"1.00", '/', "4", "0.25"},
        {"0.0000000000000000000000000003", '/', "2", "0.0000000000000000000000000002"},   // tie, even
        // 7.92281625142643375935439503359…: the last digit would carry to 2^96
        {"79228162514264337593543950328", '/', "9999999999999999999999999999", "7.922816251426433759354395034"},
        {"1", '/', "0", "DivideByZero"},
    };
    for (const auto& c : cases) {
        Decimal96 r = dec("42.5");
        const S s = apply(c.op, dec(c.a), dec(c.b), r);
        EXPECT_EQ(outcome(s, r), c.want) << c.a << ' ' << c.op << ' ' << c.b;
        if (s != S::Ok) { EXPECT_EQ(r.toText(), QStringLiteral("42.5")) << "output touched on failure"; }
    }
}

TEST(DecimalArithmetic, EdgeOperandsAgainstModel) {
    // Every pair of these, both ways, in all four operations: alignment,
    // carries and ties at the 96-bit limit and at scale 28.
    const char* edges[] = {
        "0", "1", "-1", "3", "0.5", "10", "0.0000000000000000000000000001", "0.0000000000000000000000000003",
        "0.00000000000001", "0.000000000000005", "79228162514264337593543950335", "-79228162514264337593543950334",
        "39614081257132168796771975168", "7922816251426433759354395033.5", "7.9228162514264337593543950335",
        "9.9999999999999999999999999999", "0.3333333333333333333333333333", "1.0000000000000000000000000001",
        "18446744073709551616", "1.2345678901234567890123456789", "9999999999999999999999999999",
    };
    int failures = 0;
    for (const char* a : edges)
        for (const char* b : edges) failures += checkPair(dec(a), dec(b));
    EXPECT_EQ(failures, 0);
}

TEST(DecimalArithmetic, RandomOperandsAgainstModel) {
    Gen g(20240229);
    int failures = 0;
    for (int i = 0; i < 2000 && failures < 20; ++i) failures += checkPair(g.next(), g.next());
}

TEST(DecimalText, EdgeTextsAgainstModel) {
    const char* texts[] = {
        "0", "-0", "0.000", "  12.50  ", "+7", ".5", "5.", "007.100", "1.5E+3", "1.5e3", "15E-1", "0.0015e3",
        "1E+28", "1E-28", "1E-29", "1e-999999", "0E+999999", "1e999999", "1E+29",
        "1.2345678901234567890123456789", "9.9999999999999999999999999999", "9.99999999999999999999999999949",
        "1.0000000000000000000000000000000", "79228162514264337593543950335", "79228162514264337593543950334.5",
        "79228162514264337593543950334.5000001", "79228162514264337593543950335.4999999",
        "79228162514264337593543950335.5", "79228162514264337593543950336", "99999999999999999999999999999.4",
        "7922816251426433759354395033.45", "7922816251426433759354395033.35", "7922816251426433759354395033.55",
        "7922816251426433759354395033.450000000000000000001", "0.00000000000000000000000000005",
        "0.000000000000000000000000000051", "0.00000000000000000000000000015", "0.00000000000000000000000000025",
        "0.000000000000000000000000000099999999999", "999999999999999999999999999.95",
        "99999999999999999999999999.995", "12345678901234567890.123456789012345",
        // Shapes that are no number.
        "", "   ", "E", "1E", "1E+", ".", "-", "--1", "+-1", "1.2.3", "1 2", "1e5.5", "\t1", "1\n", "0x10", "1,5",
        "\xef\xbc\x91", "Infinity", "nan",
    };
    for (const char* t : texts) {
        Decimal96 d;
        EXPECT_EQ(showResult(Decimal96::fromText(QString::fromUtf8(t), d), d), model::show(model::read(t)))
            << "\"" << t << "\"";
    }
}

TEST(DecimalText, RandomTextsAgainstModel) {
    Gen g(99);
    for (int i = 0; i < 1500; ++i) {
        int len = 1 + g.pick(45), point = 0;
        std::string digits;
        for (int k = 0; k < len; ++k) digits += char('0' + (g.pick(5) == 0 ? 9 : g.pick(10)));
        point = g.pick(len + 1);
        const std::string text = digits.substr(0, point) + "." + digits.substr(point) + "e" + std::to_string(g.pick(70) - 35);
        Decimal96 d;
        EXPECT_EQ(showResult(Decimal96::fromText(QString::fromStdString(text), d), d), model::show(model::read(text)))
            << text;
    }
}

TEST(DecimalText, LongTextsKeepEveryDigitThatDecides) {
    Decimal96 d;
    EXPECT_EQ(Decimal96::fromText(QString(10000, u'1'), d), S::Overflow);
    ASSERT_EQ(Decimal96::fromText(QStringLiteral("0.") + QString(10000, u'3'), d), S::Ok);
    EXPECT_EQ(d.toText(), QStringLiteral("0.") + QString(28, u'3'));
    // A tie broken only by the very last of 9000 zeros.
    const QString tie = QStringLiteral("0.") + QString(27, u'0') + QStringLiteral("25") + QString(9000, u'0');
    ASSERT_EQ(Decimal96::fromText(tie, d), S::Ok);
    EXPECT_EQ(d.toText(), QStringLiteral("0.") + QString(27, u'0') + u'2');
    ASSERT_EQ(Decimal96::fromText(tie + u'1', d), S::Ok);
    EXPECT_EQ(d.toText(), QStringLiteral("0.") + QString(27, u'0') + u'3');
    ASSERT_EQ(Decimal96::fromText(QString(5000, u'0') + QStringLiteral("1.5"), d), S::Ok);
    EXPECT_EQ(d.toText(), QStringLiteral("1.5"));
    // Exponents far beyond any int saturate instead of wrapping.
    EXPECT_EQ(Decimal96::fromText(QStringLiteral("1e") + QString(5000, u'9'), d), S::Overflow);
    EXPECT_EQ(Decimal96::fromText(u"1e4294967297", d), S::Overflow);
    ASSERT_EQ(Decimal96::fromText(QStringLiteral("0.") + QString(3000, u'0') + QStringLiteral("25e3002"), d), S::Ok);
    EXPECT_EQ(d.toText(), QStringLiteral("25"));
    const char16_t nul[] = {u'1', 0, u'2'};
    EXPECT_EQ(Decimal96::fromText(QStringView(nul, 3), d), S::Invalid);
    double x;
    EXPECT_FALSE(文本转双精度(QStringView(nul, 3), x));
    ASSERT_TRUE(文本转双精度(QStringLiteral("0.") + QString(10000, u'3'), x));
    EXPECT_EQ(x, 1.0 / 3.0);
}

TEST(DecimalText, WritesWithoutExponentOrTrailingZeros) {
    const struct { std::uint64_t lo; std::uint32_t hi; bool neg; int scale; const char* want; } cases[] = {
        {30, 0, false, 1, "3"}, {5, 0, true, 1, "-0.5"}, {0, 0, true, 5, "0"}, {100, 0, false, 0, "100"},
        {1050, 0, false, 3, "1.05"}, {1, 0, false, 28, "0.0000000000000000000000000001"},
        {~0ull, 0xFFFFFFFFu, true, 28, "-7.9228162514264337593543950335"},
        {0, 1, false, 19, "1.8446744073709551616"},   // 2^64: a digit group of zeros
    };
    for (const auto& c : cases) EXPECT_EQ(Decimal96::fromParts64(c.lo, c.hi, c.neg, c.scale).toText().toStdString(), c.want);
    EXPECT_EQ(Decimal96::fromInt64(INT64_MIN).toText(), QStringLiteral("-9223372036854775808"));
    EXPECT_EQ(Decimal96::fromParts64(5, 0, false, 40).scale(), 28);   // scales clamped, never table indexes
    EXPECT_EQ(Decimal96::fromParts(5, 0, 0, false, -3).scale(), 0);
}

TEST(DecimalRounding, Modes) {
    const struct { const char* in; int places; R mode; const char* want; } cases[] = {
        {"2.5", 0, R::HalfEven, "2"}, {"3.5", 0, R::HalfEven, "4"}, {"-2.5", 0, R::HalfEven, "-2"},
        {"7.9228162514264337593543950335", 0, R::HalfEven, "8"}, {"2.5", 0, R::HalfAwayFromZero, "3"},
        {"-2.5", 0, R::HalfAwayFromZero, "-3"}, {"-2.9", 0, R::TowardZero, "-2"}, {"1.23", 5, R::HalfEven, "1.23"},
        {"1.0049999", 2, R::HalfAwayFromZero, "1"}, {"1.25", -3, R::HalfAwayFromZero, "1"},   // places clamped to 0
        {"7.9228162514264337593543950335", 27, R::HalfEven, "7.922816251426433759354395034"},
        {"0.0000000000000000000000000015", 27, R::HalfEven, "0.000000000000000000000000002"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(dec(c.in).rounded(c.places, c.mode).toText().toStdString(), c.want) << c.in << " to " << c.places;
    EXPECT_EQ(dec("-7.9").truncated().scale(), 0);
}

// ---------------------------------------------------------------------------
// Doubles

TEST(DecimalDouble, FifteenDigitRule) {
    const struct { double in; const char* want; } cases[] = {
        {2.0 / 3.0, "0.666666666666667"}, {-0.1 - 0.2, "-0.3"}, {123456789012345678.0, "123456789012346000"},
        {1.5e-28, "0.0000000000000000000000000002"}, {2.5e-28, "0.0000000000000000000000000002"}, {9e-30, "0"},
        {7.92281625142642e28, "79228162514264200000000000000"}, {79228162514264337593543950336.0, "Overflow"},
        {NAN, "Invalid"},
    };
    for (const auto& c : cases) {
        Decimal96 d;
        EXPECT_EQ(outcome(Decimal96::fromDouble(c.in, d), d), c.want) << "double " << c.in;
    }
    Decimal96 d;   // the largest double below 2^96 still rounds into range
    EXPECT_EQ(Decimal96::fromDouble(std::nextafter(79228162514264337593543950336.0, 0.0), d), S::Ok);
}

TEST(DecimalDouble, TextOfDoubleAndBack) {
    const struct { double in; const char* want; } cases[] = {
        {1e15, "1E+15"}, {1.5e-16, "1.5E-16"}, {1.0 / 30.0, "3.33333333333333E-02"}, {1.0 / 3.0, "0.333333333333333"},
        {0.1 + 0.2, "0.3"}, {123456789012345678.0, "1.23456789012346E+17"}, {-0.000001, "-0.000001"},
        {999999999999999.9, "1E+15"}, {123456789012.345678, "123456789012.346"}, {-1.25e-300, "-1.25E-300"},
        {0.0000000000000015, "1.5E-15"}, {100.0, "100"}, {-0.0, "0"}, {5e-324, "4.94065645841247E-324"}, {INFINITY, "Infinity"},
    };
    for (const auto& c : cases) EXPECT_EQ(双精度文本(c.in).toStdString(), c.want) << "double " << c.in;
    const struct { const char* in; bool ok; double want; } texts[] = {
        {" -2.5e-3 ", true, -0.0025}, {"9007199254740993", true, 9007199254740992.0},   // tie, even
        {"9007199254740993.000000000000000000001", true, 9007199254740994.0}, {"1e309", false, 0},
        {"2.4703282292062328e-324", true, 5e-324}, {"2.4703282292062327e-324", true, 0.0}, {"1e", false, 0},
    };
    for (const auto& c : texts) {
        double v = -99;
        EXPECT_EQ(文本转双精度(QString::fromUtf8(c.in), v), c.ok) << c.in;
        if (c.ok) { EXPECT_EQ(v, c.want) << c.in; }
    }
    // 15 digits read back within half a unit of the 15th digit.
    std::mt19937_64 rng(7);
    for (int i = 0; i < 500; ++i) {
        const double x = std::ldexp(double(rng() >> 11), int(rng() % 200) - 150);
        double back = 0;
        ASSERT_TRUE(文本转双精度(双精度文本(x), back)) << x;
        EXPECT_LE(std::fabs(back - x), std::fabs(x) * 5.1e-15) << x;
    }
}

}  // namespace
