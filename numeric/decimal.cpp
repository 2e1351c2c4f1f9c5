// The 96-bit scaled decimal: arithmetic, conversions and text.
//
// Mantissas are handled as unsigned __int128 (the top 32 bits always zero
// for a stored value); products and aligned operands that need more go
// through the 192-bit type U192 below. Every rounding is half-even over all
// discarded digits: the digits are divided off in chunks of at most 19
// (10^19 < 2^64), lowest first, so the lower chunks only feed a "sticky"
// flag and the last chunk decides against exactly half.
#include "numeric/decimal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

// Construction without the range clamp of fromParts: every scale made in
// this file is already within 0..28.
struct Decimal96Access {
    static Decimal96 make(std::uint64_t lo64, std::uint32_t hi, bool neg, int scale) {
        Decimal96 d;
        d.lo64_ = lo64;
        d.hi_ = hi;
        d.neg_ = neg;
        d.scale_ = static_cast<std::uint8_t>(scale);
        return d;
    }
};

namespace {

using u64 = std::uint64_t;
using u128 = unsigned __int128;

constexpr u128 kTwo96 = u128(1) << 96;
constexpr u128 kMaxMantissa = kTwo96 - 1;   // 79228162514264337593543950335

constexpr std::array<u128, 39> makePow10() {
    std::array<u128, 39> t{};
    u128 p = 1;
    for (auto& x : t) { x = p; p *= 10; }
    return t;
}
// 10^0 .. 10^38; 10^38 < 2^128 (≈ 3.4E+38).
constexpr std::array<u128, 39> kPow10 = makePow10();
static_assert(kPow10.size() == 39);
static_assert(kPow10[28] < (u128(1) << 94), "10^28 fits 94 bits: aligned operands fit 192 bits");

// Bits of v (0 for 0).
inline int bitLength(u128 v) {
    if (v >> 64) return 128 - __builtin_clzll(static_cast<u64>(v >> 64));
    return v ? 64 - __builtin_clzll(static_cast<u64>(v)) : 0;
}

// Decimal digits of v (1 for 0).
inline int digitCount(u128 v) {
    // Lower bound from the bit length, then one correction step:
    // 1233/4096 is a little below log10(2).
    if (v == 0) return 1;
    int bits = v >> 64 ? 128 - __builtin_clzll(static_cast<u64>(v >> 64))
                       : 64 - __builtin_clzll(static_cast<u64>(v));
    int d = (bits * 1233) >> 12;   // floor(bits*log10(2)) or one less
    if (d < 38 && v >= kPow10[d]) ++d;
    if (d < 38 && v >= kPow10[d]) ++d;
    return d == 0 ? 1 : d;
}

// (hi:lo) / d with hi < d: quotient fits 64 bits.
inline u64 div128by64(u64 hi, u64 lo, u64 d, u64& rem) {
#if defined(__x86_64__)
    u64 q, r;
    __asm__("divq %4" : "=a"(q), "=d"(r) : "a"(lo), "d"(hi), "rm"(d));
    rem = r;
    return q;
#else
    u128 n = (u128(hi) << 64) | lo;
    rem = static_cast<u64>(n % d);
    return static_cast<u64>(n / d);
#endif
}

// Division by 10^k (k = 1..19) through a precomputed reciprocal instead of
// a hardware division: Möller and Granlund, "Improved division by invariant
// integers" (IEEE Trans. Computers, 2011), algorithm 4. The divisor is
// normalised (shifted so its top bit is set); v = floor((2^128-1)/d) - 2^64.
struct Reciprocal { u64 d; u64 v; int shift; };
constexpr std::array<Reciprocal, 20> makeReciprocals() {
    std::array<Reciprocal, 20> t{};
    for (int k = 1; k < 20; ++k) {
        u64 d = static_cast<u64>(kPow10[k]);
        int sh = 0;
        while (!(d & (u64(1) << 63))) { d <<= 1; ++sh; }
        t[k] = {d, static_cast<u64>(~u128(0) / d - (u128(1) << 64)), sh};
    }
    return t;
}
constexpr std::array<Reciprocal, 20> kRecip = makeReciprocals();
static_assert(kRecip.size() == 20);

// (u1:u0) / d with u1 < d, d normalised.
inline u64 divPreinv(u64 u1, u64 u0, const Reciprocal& rc, u64& rem) {
    u128 q = u128(rc.v) * u1 + ((u128(u1) << 64) | u0);
    u64 q1 = static_cast<u64>(q >> 64) + 1;
    u64 q0 = static_cast<u64>(q);
    u64 r = u0 - q1 * rc.d;
    if (r > q0) { --q1; r += rc.d; }
    if (r >= rc.d) { ++q1; r -= rc.d; }
    rem = r;
    return q1;
}

// v / 10^k for a 128-bit v, k = 1..19.
inline u128 divPow10Fast(u128 v, int k, u64& rem) {
    const Reciprocal& rc = kRecip[k];
    int sh = rc.shift;
    u64 hi = static_cast<u64>(v >> 64), lo = static_cast<u64>(v);
    // Shift the dividend with the divisor: three limbs n2:n1:n0, n2 < d.
    u64 n2 = sh ? hi >> (64 - sh) : 0;
    u64 n1 = sh ? (hi << sh) | (lo >> (64 - sh)) : hi;
    u64 n0 = lo << sh;
    u64 r;
    u64 q1 = divPreinv(n2, n1, rc, r);
    u64 q0 = divPreinv(r, n0, rc, r);
    rem = r >> sh;
    return (u128(q1) << 64) | q0;
}

// m / 10^k for k in 0..38, remainder in rem.
inline u128 divPow10(u128 m, int k, u128& rem) {
    if (k == 0) { rem = 0; return m; }
    if (k <= 19) {
        u64 r;
        u128 q = divPow10Fast(m, k, r);
        rem = r;
        return q;
    }
    u64 r1, r2;
    u128 q = divPow10Fast(m, 19, r1);
    q = divPow10Fast(q, k - 19, r2);
    rem = u128(r2) * static_cast<u64>(kPow10[19]) + r1;
    return q;
}

// 192-bit unsigned, little-endian 64-bit limbs.
struct U192 {
    u64 w[3] = {0, 0, 0};
    U192() = default;
    explicit U192(u128 v) { w[0] = static_cast<u64>(v); w[1] = static_cast<u64>(v >> 64); }
    bool fitsU128() const { return w[2] == 0; }
    u128 low128() const { return (u128(w[1]) << 64) | w[0]; }
    bool isZero() const { return (w[0] | w[1] | w[2]) == 0; }
    // floor(v / 2^96); fits 96 bits.
    u128 shr96() const { return (u128(w[2]) << 32) | (w[1] >> 32); }
};

inline int cmp(const U192& a, const U192& b) {
    for (int i = 2; i >= 0; --i)
        if (a.w[i] != b.w[i]) return a.w[i] < b.w[i] ? -1 : 1;
    return 0;
}

inline U192 add(const U192& a, const U192& b) {
    U192 r;
    unsigned long long c = 0;
    c = __builtin_add_overflow(a.w[0], b.w[0], &r.w[0]);
    u64 t;
    unsigned long long c1 = __builtin_add_overflow(a.w[1], b.w[1], &t);
    c1 |= __builtin_add_overflow(t, c, &r.w[1]);
    r.w[2] = a.w[2] + b.w[2] + c1;
    return r;
}

// a - b, a >= b.
inline U192 sub(const U192& a, const U192& b) {
    U192 r;
    unsigned long long br = __builtin_sub_overflow(a.w[0], b.w[0], &r.w[0]);
    u64 t;
    unsigned long long b1 = __builtin_sub_overflow(a.w[1], b.w[1], &t);
    b1 |= __builtin_sub_overflow(t, br, &r.w[1]);
    r.w[2] = a.w[2] - b.w[2] - b1;
    return r;
}

// a * b for a, b < 2^96 (the product is below 2^192).
inline U192 mulWide(u128 a, u128 b) {
    u64 a0 = static_cast<u64>(a), a1 = static_cast<u64>(a >> 64);
    u64 b0 = static_cast<u64>(b), b1 = static_cast<u64>(b >> 64);
    u128 p00 = u128(a0) * b0;
    u128 p01 = u128(a0) * b1;
    u128 p10 = u128(a1) * b0;
    u128 p11 = u128(a1) * b1;
    U192 r;
    r.w[0] = static_cast<u64>(p00);
    u128 mid = (p00 >> 64) + static_cast<u64>(p01) + static_cast<u64>(p10);
    r.w[1] = static_cast<u64>(mid);
    u128 high = (mid >> 64) + (p01 >> 64) + (p10 >> 64) + p11;
    r.w[2] = static_cast<u64>(high);
    return r;
}

// v / d for a 64-bit divisor; remainder in rem.
inline U192 divSmall(const U192& v, u64 d, u64& rem) {
    U192 q;
    u64 r = 0;
    for (int i = 2; i >= 0; --i) {
        if (r == 0 && v.w[i] < d) { q.w[i] = 0; r = v.w[i]; continue; }
        q.w[i] = div128by64(r, v.w[i], d, r);
    }
    rem = r;
    return q;
}

// v / 10^k for k = 1..19, remainder in rem.
inline U192 divPow10Small(const U192& v, int k, u64& rem) {
    const Reciprocal& rc = kRecip[k];
    int sh = rc.shift;
    u64 n3 = sh ? v.w[2] >> (64 - sh) : 0;
    u64 n2 = sh ? (v.w[2] << sh) | (v.w[1] >> (64 - sh)) : v.w[2];
    u64 n1 = sh ? (v.w[1] << sh) | (v.w[0] >> (64 - sh)) : v.w[1];
    u64 n0 = v.w[0] << sh;
    U192 q;
    u64 r;
    q.w[2] = divPreinv(n3, n2, rc, r);
    q.w[1] = divPreinv(r, n1, rc, r);
    q.w[0] = divPreinv(r, n0, rc, r);
    rem = r >> sh;
    return q;
}

// v / d for a divisor of 65..96 bits: Knuth's algorithm D on 64-bit limbs.
// The quotient is below 2^128.
u128 divLarge(const U192& v, u128 d, u128& rem) {
    u64 d1 = static_cast<u64>(d >> 64), d0 = static_cast<u64>(d);
    int s = __builtin_clzll(d1);
    if (v.w[2] == 0) {
        // A 128-bit dividend: the quotient is below 2^64. Estimate it from
        // the top 64 bits of the normalised divisor (n/2 against them keeps
        // the hardware division in range), then correct by one: the method
        // of the usual 128-by-128 division routines.
        u128 n = v.low128();
        u64 dn = static_cast<u64>((d << s) >> 64);
        u128 half = n >> 1;
        u64 r;
        u64 q1 = div128by64(static_cast<u64>(half >> 64), static_cast<u64>(half), dn, r);
        u64 q0 = static_cast<u64>((u128(q1) << s) >> 63);
        if (q0 != 0) --q0;
        u128 rr = n - u128(q0) * d;
        if (rr >= d) { ++q0; rr -= d; }
        rem = rr;
        return q0;
    }
    // Normalise so that the divisor's top bit is set.
    u64 v1 = s ? (d1 << s) | (d0 >> (64 - s)) : d1;
    u64 v0 = d0 << s;
    u64 u[4];
    u[3] = s ? v.w[2] >> (64 - s) : 0;
    u[2] = s ? (v.w[2] << s) | (v.w[1] >> (64 - s)) : v.w[2];
    u[1] = s ? (v.w[1] << s) | (v.w[0] >> (64 - s)) : v.w[1];
    u[0] = v.w[0] << s;
    u64 q[2];
    for (int j = 1; j >= 0; --j) {
        u64 top = u[j + 2], next = u[j + 1];
        u64 qhat, rhat;
        bool rhatBig = false;
        if (top >= v1) {
            // The estimate would not fit a limb: start from b-1.
            qhat = ~u64(0);
            u128 r = ((u128(top) << 64) | next) - u128(qhat) * v1;
            rhatBig = (r >> 64) != 0;
            rhat = static_cast<u64>(r);
        } else {
            qhat = div128by64(top, next, v1, rhat);
        }
        while (!rhatBig && u128(qhat) * v0 > ((u128(rhat) << 64) | u[j])) {
            --qhat;
            u64 nr;
            rhatBig = __builtin_add_overflow(rhat, v1, &nr);
            rhat = nr;
        }
        // u[j..j+2] -= qhat * (v1:v0)
        u128 p0 = u128(qhat) * v0;
        u128 p1 = u128(qhat) * v1 + (p0 >> 64);
        u64 t0 = static_cast<u64>(p0), t1 = static_cast<u64>(p1), t2 = static_cast<u64>(p1 >> 64);
        u64 b0 = __builtin_sub_overflow(u[j], t0, &u[j]);
        u64 x;
        u64 b1 = __builtin_sub_overflow(u[j + 1], t1, &x);
        b1 |= __builtin_sub_overflow(x, b0, &u[j + 1]);
        u64 b2 = __builtin_sub_overflow(u[j + 2], t2, &x);
        b2 |= __builtin_sub_overflow(x, b1, &u[j + 2]);
        if (b2) {
            // Estimate one too large (rare): add the divisor back.
            --qhat;
            u64 c0 = __builtin_add_overflow(u[j], v0, &u[j]);
            u64 c1 = __builtin_add_overflow(u[j + 1], v1, &x);
            c1 |= __builtin_add_overflow(x, c0, &u[j + 1]);
            u[j + 2] += c1;
        }
        q[j] = qhat;
    }
    u128 r = (u128(u[1]) << 64) | u[0];
    rem = r >> s;   // u[2] is 0: the remainder is below the divisor
    return (u128(q[1]) << 64) | q[0];
}

// v / d for d < 2^96, d != 0; the quotient must fit 128 bits (callers
// guarantee it). Remainder in rem.
inline u128 divmod(const U192& v, u128 d, u128& rem) {
    if ((d >> 64) == 0) {
        u64 r;
        U192 q = divSmall(v, static_cast<u64>(d), r);
        rem = r;
        return q.low128();
    }
    return divLarge(v, d, rem);
}

// Round v / 10^k to nearest, ties to even, over every discarded digit;
// `sticky` says that something nonzero lies below v already. k may exceed
// the digits of v (the result is then 0 or, never, 1). Result < 2^128
// whenever v / 10^k < 2^127 (all callers).
u128 divPow10Round(U192 v, int k, bool sticky) {
    if (k == 0) {
        u128 q = v.low128();
        return q;   // sticky below a whole unit never rounds (below half)
    }
    while (k > 19) {
        u64 r;
        v = divPow10Small(v, 19, r);
        sticky |= r != 0;
        k -= 19;
        if (v.isZero()) return 0;   // the rest lies below half of a unit
    }
    u64 r;
    U192 q = divPow10Small(v, k, r);
    u128 res = q.low128();
    u64 half = static_cast<u64>(kPow10[k] / 2);
    if (r > half || (r == half && (sticky || (res & 1)))) ++res;
    return res;
}

using Status = Decimal96::Status;

inline u128 mant(const Decimal96& d) { return (u128(d.hi()) << 64) | d.lo64(); }

inline Decimal96 make(u128 m, bool neg, int scale) {
    return Decimal96Access::make(static_cast<u64>(m), static_cast<std::uint32_t>(m >> 64), neg, scale);
}

// Bring (v, scale) to a mantissa below 2^96 and a scale of at most 28,
// dropping at least minK digits, rounding half-even; `sticky` says that a
// nonzero fraction lies below v's last digit (less than half of it, or a
// caller asks for minK >= 1 so that it only breaks ties). Overflow when
// that needs a scale below 0.
Status fitResult(const U192& v, int scale, bool neg, bool sticky, Decimal96& out, int minK = 0) {
    int k = std::max(minK, scale - Decimal96::kMaxScale);
    u128 top = v.shr96();
    if (top) k = std::max(k, digitCount(top));   // smallest k with v / 10^k < 2^96
    if (k == 0) {
        out = make(v.low128(), neg, scale);
        return Status::Ok;
    }
    for (;;) {
        if (k > scale) return Status::Overflow;
        u128 q = divPow10Round(v, k, sticky);
        if (q <= kMaxMantissa) {
            out = make(q, neg, scale - k);
            return Status::Ok;
        }
        ++k;   // the rounding carried past 96 bits: one digit less
    }
}

// fitResult for a value that fits 128 bits: the reduction needs at most
// 10 digits unless the scale is far above 28; anything else goes the
// general way. `sticky` as for fitResult; a caller that sets it guarantees
// that at least one digit is dropped (v >= 2^96).
__attribute__((noinline)) Status fit128(u128 v, int scale, bool neg, Decimal96& out, bool sticky = false) {
    int k = std::max(0, scale - Decimal96::kMaxScale);
    u64 top = static_cast<u64>(v >> 96);
    if (top) k = std::max(k, digitCount(top));
    if (k == 0) { out = make(v, neg, scale); return Status::Ok; }
    while (k <= 19) {
        if (k > scale) return Status::Overflow;
        u64 r;
        u64 d = static_cast<u64>(kPow10[k]);
        u128 q = divPow10Fast(v, k, r);
        u64 half = d / 2;
        if (r > half || (r == half && (sticky || (q & 1)))) ++q;
        if (q <= kMaxMantissa) { out = make(q, neg, scale - k); return Status::Ok; }
        ++k;
    }
    return fitResult(U192(v), scale, neg, sticky, out);
}

// The largest mantissa m with m * 10^d < 2^127, d = 0..28.
constexpr std::array<u128, 29> makeAlignLimits() {
    std::array<u128, 29> t{};
    for (int d = 0; d < 29; ++d) t[d] = ((u128(1) << 127) - 1) / kPow10[d];
    return t;
}
constexpr std::array<u128, 29> kAlignLimit = makeAlignLimits();
static_assert(kAlignLimit.size() == 29);

// The aligned operand would pass 2^127: see below. Out of line, so that
// the common path of addCore needs no saved registers.
__attribute__((noinline)) Status addFar(u128 small, u128 other, int diff, int scale, bool same, bool negX,
                                        Decimal96& out) {
    // X = small * 10^diff >= 2^127 > 10^38 has dX = digits(small) + diff
    // digits, far beyond Y = other (< 10^29), so X ± Y >= 0.9 * 10^(dX-1).
    // Divide by 10^k0, k0 = dX - 31, before adding: X / 10^k0 is exact,
    // Y / 10^k0 is cut with its remainder kept as a sticky bit, and the
    // truncated result t >= 9 * 10^29 still has more digits than 96 bits
    // hold, so the final rounding drops at least one more digit and sees
    // every discarded one. t < 1.1 * 10^31 fits 128 bits.
    int k0 = digitCount(small) + diff - 31;
    u128 A = small * kPow10[diff - k0];
    u128 yr;
    u128 yq = divPow10(other, k0, yr);
    u128 t = same ? A + yq : A - yq - (yr != 0 ? 1 : 0);
    return fit128(t, scale - k0, negX, out, yr != 0);
}

// Magnitude addition/subtraction of two aligned operands.
__attribute__((always_inline)) inline Status addCore(const Decimal96& a, bool negB, const Decimal96& b, Decimal96& out) {
    bool negA = a.negative();
    u128 ma = mant(a), mb = mant(b);
    int sa = a.scale(), sb = b.scale();
    // Fast path: same scale.
    if (sa == sb) {
        if (negA == negB) {
            u128 s = ma + mb;   // < 2^97
            if (s <= kMaxMantissa) { out = make(s, negA, sa); return Status::Ok; }
            return fit128(s, sa, negA, out);
        }
        if (ma >= mb) {
            u128 d = ma - mb;
            out = make(d, d == 0 ? false : negA, sa);
        } else {
            out = make(mb - ma, negB, sa);
        }
        return Status::Ok;
    }
    // Align to the larger scale; the smaller-scale operand is multiplied.
    bool aScaled = sa < sb;
    int scale = aScaled ? sb : sa;
    int diff = aScaled ? sb - sa : sa - sb;
    u128 small = aScaled ? ma : mb;
    u128 other = aScaled ? mb : ma;
    bool negX = aScaled ? negA : negB;
    bool negY = aScaled ? negB : negA;
    if (small <= kAlignLimit[diff]) {
        // Everything fits 128 bits: small * 10^diff < 2^127, other < 2^96,
        // and their sum < 2^128.
        u128 x = (small >> 64) == 0 && diff <= 19
                     ? u128(static_cast<u64>(small)) * static_cast<u64>(kPow10[diff])
                     : small * kPow10[diff];
        u128 r;
        bool neg;
        if (negX == negY) {
            r = x + other;
            neg = negX;
        } else if (x > other) {
            r = x - other;
            neg = negX;
        } else if (x < other) {
            r = other - x;
            neg = negY;
        } else {
            out = make(0, false, scale);
            return Status::Ok;
        }
        if (r <= kMaxMantissa) { out = make(r, neg, scale); return Status::Ok; }
        return fit128(r, scale, neg, out);
    }
    return addFar(small, other, diff, scale, negX == negY, negX, out);
}

// Strip trailing zeros of q down to scale `floor`.
inline void stripZeros(u128& q, int& scale, int floor) {
    if (q == 0) { scale = std::max(floor, 0); return; }
    static constexpr int steps[] = {16, 8, 4, 2, 1};
    for (int st : steps) {
        while (scale - st >= floor) {
            u64 r;
            u128 t = divPow10Fast(q, st, r);
            if (r != 0) break;
            q = t;
            scale -= st;
        }
    }
}

// ---- text parsing -------------------------------------------------------

// The digits of a number text, with leading zeros gone: value is
// 0.d1d2d3... × 10^pointExp. At most kKeep digits are kept; any nonzero
// digit beyond sets `sticky`.
struct ParsedNumber {
    static constexpr int kKeep = 800;   // a double needs at most 767 significant digits
    bool negative = false;
    bool zero = true;
    bool sticky = false;
    int count = 0;          // kept digits, trailing zeros included
    int nonzeroEnd = 0;     // one past the last nonzero kept digit
    std::int64_t pointExp = 0;
    char digits[kKeep];
};

// Grammar: blanks (U+0020) at both ends, optional sign, digits with at most
// one ".", at least one digit, optional E/e with optional sign and at least
// one digit. Exponent values saturate far beyond any meaning (±10^9), so a
// long exponent neither overflows nor loops.
bool parseNumber(QStringView text, ParsedNumber& p) {
    const char16_t* s = text.utf16();
    qsizetype n = text.size();
    qsizetype i = 0, e = n;
    while (i < e && s[i] == u' ') ++i;
    while (e > i && s[e - 1] == u' ') --e;
    if (i < e && (s[i] == u'+' || s[i] == u'-')) { p.negative = s[i] == u'-'; ++i; }
    bool seenPoint = false, anyDigit = false;
    std::int64_t intDigits = 0;        // mantissa digits ahead of the point
    std::int64_t firstSig = -1;        // index of the first nonzero digit
    std::int64_t index = 0;
    for (; i < e; ++i) {
        char16_t c = s[i];
        if (c >= u'0' && c <= u'9') {
            anyDigit = true;
            if (c != u'0' && firstSig < 0) firstSig = index;
            if (firstSig >= 0) {
                if (p.count < ParsedNumber::kKeep) {
                    p.digits[p.count++] = static_cast<char>(c);
                    if (c != u'0') p.nonzeroEnd = p.count;
                } else if (c != u'0') {
                    p.sticky = true;
                }
            }
            if (!seenPoint) ++intDigits;
            ++index;
        } else if (c == u'.') {
            if (seenPoint) return false;
            seenPoint = true;
        } else {
            break;
        }
    }
    if (!anyDigit) return false;
    std::int64_t exp = 0;
    if (i < e) {
        if (s[i] != u'E' && s[i] != u'e') return false;
        ++i;
        bool expNeg = false;
        if (i < e && (s[i] == u'+' || s[i] == u'-')) { expNeg = s[i] == u'-'; ++i; }
        bool expDigit = false;
        for (; i < e; ++i) {
            char16_t c = s[i];
            if (c < u'0' || c > u'9') return false;
            expDigit = true;
            if (exp < 1000000000) exp = exp * 10 + (c - u'0');
        }
        if (!expDigit) return false;
        if (expNeg) exp = -exp;
    }
    if (firstSig < 0) return true;   // zero
    p.zero = false;
    p.pointExp = intDigits - firstSig + exp;
    return true;
}

// The first n kept digits as an integer (n <= 38), digits past `count`
// read as 0.
inline u128 digitsValue(const ParsedNumber& p, int n) {
    u64 hi = 0, lo = 0;
    int split = std::max(0, n - 19);
    for (int k = 0; k < split; ++k) hi = hi * 10 + (k < p.count ? p.digits[k] - '0' : 0);
    for (int k = split; k < n; ++k) lo = lo * 10 + (k < p.count ? p.digits[k] - '0' : 0);
    return u128(hi) * static_cast<u64>(kPow10[n - split]) + lo;
}

// Round the parsed digits to a decimal (see fromText).
Status decimalFromParsed(const ParsedNumber& p, Decimal96& out) {
    if (p.zero) { out = Decimal96::fromParts64(0, 0, p.negative, 0); return Status::Ok; }
    const std::int64_t P = p.pointExp;   // digits of the integer part (may be <= 0)
    if (P > 29) return Status::Overflow;
    if (P + Decimal96::kMaxScale < 0) { out = Decimal96::fromParts64(0, 0, p.negative, 0); return Status::Ok; }
    int n = p.count;   // significant digits; typed trailing zeros count (they set the scale)
    if (n <= P) {
        // An integer: all digits kept, padded with zeros to scale 0.
        u128 m = digitsValue(p, static_cast<int>(P));
        if (m > kMaxMantissa) return Status::Overflow;
        out = make(m, p.negative, 0);
        return Status::Ok;
    }
    // Keep m digits: scale m - P must stay within 0..28, the mantissa
    // within 96 bits.
    int m = static_cast<int>(std::min<std::int64_t>(n, P + Decimal96::kMaxScale));
    m = std::min(m, 29);
    if (m == 29 && digitsValue(p, 29) > kMaxMantissa) m = 28;
    for (;;) {
        int scale = static_cast<int>(m - P);
        if (scale < 0) return Status::Overflow;
        u128 q = m > 0 ? digitsValue(p, m) : 0;
        if (m < n) {
            int d = p.digits[m] - '0';
            bool sticky = p.sticky || m + 1 < p.nonzeroEnd;
            if (d > 5 || (d == 5 && (sticky || (q & 1)))) ++q;
        }
        if (q <= kMaxMantissa) { out = make(q, p.negative, scale); return Status::Ok; }
        --m;
    }
}

QString fromAscii(const char* s, int n) {
    char16_t buf[64];
    for (int i = 0; i < n; ++i) buf[i] = static_cast<unsigned char>(s[i]);
    return QString(reinterpret_cast<const QChar*>(buf), n);
}

// Decimal digits of m into buf (no leading zeros, "0" for zero); returns
// the count. buf holds at least 40 characters.
int mantissaText(u128 m, char* buf) {
    char tmp[40];
    int n = 0;
    while (m >> 64) {
        u64 r;
        m = divPow10Fast(m, 19, r);
        for (int k = 0; k < 19; ++k) { tmp[n++] = static_cast<char>('0' + r % 10); r /= 10; }
    }
    u64 x = static_cast<u64>(m);
    do { tmp[n++] = static_cast<char>('0' + x % 10); x /= 10; } while (x);
    for (int k = 0; k < n; ++k) buf[k] = tmp[n - 1 - k];
    return n;
}

#if defined(__x86_64__) && (__LDBL_MANT_DIG__ == 64)
// 10^0 .. 10^27 in extended precision, every one exact (5^27 < 2^64).
constexpr long double kTen[28] = {1e0L,  1e1L,  1e2L,  1e3L,  1e4L,  1e5L,  1e6L,  1e7L,  1e8L,  1e9L,
                                  1e10L, 1e11L, 1e12L, 1e13L, 1e14L, 1e15L, 1e16L, 1e17L, 1e18L, 1e19L,
                                  1e20L, 1e21L, 1e22L, 1e23L, 1e24L, 1e25L, 1e26L, 1e27L};
static_assert(sizeof kTen / sizeof kTen[0] == 28);
#endif

// Whether long double arithmetic really carries 64 bits here (an emulator
// such as valgrind's computes it in double); the two short roads below
// rest on it and stand aside when it does not.
bool extendedPrecision() {
    static const bool ok = [] {
        volatile long double one = 1.0L, tiny = 0x1p-62L;
        return one + tiny != one;
    }();
    return ok;
}

// m / 10^scale correctly rounded to double, through the 64-bit significand
// of x87 extended precision: m (< 2^96) converts with one rounding, 10^s is
// exact for s <= 27 (5^27 < 2^64) and 10^28 is rounded once, so the
// extended quotient q lies within a few units of its last place of the
// true value. Rounding q to double is then right unless q's 11 bits below
// the double's 53 lie within that distance of the halfway pattern 0x400
// (where the true value might sit on the other side); those cases, about
// one in a hundred, answer false and the caller takes the exact road.
bool longDoubleQuotient(u128 m, int scale, double& out) {
#if defined(__x86_64__) && (__LDBL_MANT_DIG__ == 64)
    if (!extendedPrecision()) return false;
    long double q = static_cast<long double>(m);
    // 10^28 (66 bits) is itself rounded once: a third rounding of 2^-64.
    q = scale == 28 ? q / 1e28L : q / kTen[scale];
    if (q == 0.0L) return false;
    // The x87 format keeps its 64-bit significand (explicit leading bit)
    // in the low eight bytes.
    u64 sig = 0;
    std::memcpy(&sig, &q, sizeof sig);
    const int low = static_cast<int>(sig & 0x7FF);
    if (low > 0x400 - 16 && low < 0x400 + 16) return false;
    out = static_cast<double>(q);
    return true;
#else
    (void)m; (void)scale; (void)out;
    return false;
#endif
}

// The 15 significant digits of a as N (10^14 <= N < 10^15, a ≈ N / 10^k)
// in exact integer arithmetic, for 1E-7 <= a < 1E+14 (0 <= k <= 22, where
// a's 53-bit integer M times 10^k fits 128 bits): N is M·10^k shifted down
// by a's binary exponent, rounded to nearest by the bits shifted out. An
// exact tie, and any a outside the range, answer false.
bool fifteenDigitsExact(double a, u64& N, int& k) {
    u64 bits = 0;
    std::memcpy(&bits, &a, sizeof bits);
    const int biased = static_cast<int>((bits >> 52) & 0x7FF);
    if (biased == 0) return false;                       // subnormal: far below 1E-7
    const u64 M = (bits & ((u64(1) << 52) - 1)) | (u64(1) << 52);
    const int e2 = biased - 1023;                        // a in [2^e2, 2^(e2+1))
    const int sh = 52 - e2;                              // a = M / 2^sh
    if (e2 < -24 || e2 > 46) return false;               // 2^-24 < 1E-7; 2^47 > 1E+14
    const int e10 = e2 >= 0 ? (e2 * 77) >> 8 : -((-e2 * 77 + 255) >> 8);
    k = 14 - e10;
    auto whole = [&](int j) { return (u128(M) * kPow10[j]) >> sh; };   // floor(a·10^j)
    for (int t = 0; t < 2; ++t) {
        if (k < 0 || k > 22) return false;
        const u128 x = whole(k);
        if (x < 100000000000000ULL) ++k;
        else if (x >= 1000000000000000ULL) --k;
        else break;
    }
    if (k < 0 || k > 22) return false;
    const u128 P = u128(M) * kPow10[k];
    u128 x = P >> sh;
    if (x < 100000000000000ULL || x >= 1000000000000000ULL) return false;
    const u128 rest = P & ((u128(1) << sh) - 1);
    const u128 half = u128(1) << (sh - 1);
    if (rest == half) return false;
    if (rest > half) ++x;
    N = static_cast<u64>(x);
    if (N == 1000000000000000ULL) { N = 100000000000000ULL; --k; }
    return true;
}

// The 15 significant digits of a (1E-29 <= a < 2^96) as N, 10^14 <= N <
// 10^15, with a ≈ N / 10^k, rounded to nearest from the exact binary value.
// a·10^k is formed in extended precision (10^j exact for j <= 27; beyond,
// two factors), within 2E-4 of its true value (3 roundings of 2^-64 at
// most, on a value below 10^15). A fraction within 1E-3 of one half might
// round either way, and a true tie must go to even: both answer false, and
// the caller takes the exact road of the digit printer.
bool fifteenDigits(double a, u64& N, int& k) {
#if defined(__x86_64__) && (__LDBL_MANT_DIG__ == 64)
    if (!extendedPrecision()) return false;
    auto scaled = [&](int j) -> long double {
        const long double x = a;
        if (j >= 0) return j <= 27 ? x * kTen[j] : x * kTen[27] * kTen[j - 27];
        return x / kTen[-j];   // j >= -14 here
    };
    // floor(log10 a) or one off, from the binary exponent (a is normal):
    // 77/256 is a little below log10 2.
    u64 bits = 0;
    std::memcpy(&bits, &a, sizeof bits);
    const int e2 = static_cast<int>((bits >> 52) & 0x7FF) - 1023;   // a in [2^e2, 2^(e2+1))
    const int e10 = e2 >= 0 ? (e2 * 77) >> 8 : -((-e2 * 77 + 255) >> 8);
    k = 14 - e10;
    long double x = scaled(k);
    for (int t = 0; t < 2 && x < 1e14L; ++t) x = scaled(++k);
    for (int t = 0; t < 2 && x >= 1e15L; ++t) x = scaled(--k);
    if (!(x >= 1e14L && x < 1e15L) || k > 43 || k < -14) return false;
    // Nearest integer without a change of the x87 rounding mode (which
    // stalls): 2^63 + x has a unit last place, so the addition rounds x to
    // the nearest integer and the significand bits hold 2^63 + that integer.
    const long double y = x + 0x1p63L;
    u64 sig = 0;
    std::memcpy(&sig, &y, sizeof sig);
    const long double frac = x - (y - 0x1p63L);   // exact, within ±0.5
    if (std::fabs(frac) > 0.5L - 1e-3L) return false;
    N = sig - (u64(1) << 63);
    if (N == 1000000000000000ULL) { N = 100000000000000ULL; --k; }
    return true;
#else
    (void)a; (void)N; (void)k;
    return false;
#endif
}

}  // namespace

// ---- construction and conversion ---------------------------------------

Decimal96 Decimal96::fromInt64(std::int64_t v) {
    u64 mag = v < 0 ? u64(0) - static_cast<u64>(v) : static_cast<u64>(v);
    return fromParts64(mag, 0, v < 0, 0);
}

Decimal96::Status Decimal96::fromText(QStringView text, Decimal96& out) {
    ParsedNumber p;
    if (!parseNumber(text, p)) return Status::Invalid;
    return decimalFromParsed(p, out);
}

Decimal96::Status Decimal96::fromDouble(double d, Decimal96& out) {
    if (!std::isfinite(d)) return Status::Invalid;
    double a = std::fabs(d);
    // 2^96 is the double nearest 7.9228162514264337593543950335E+28.
    if (a >= 79228162514264337593543950336.0) return Status::Overflow;
    if (a < 1E-29) { out = fromParts64(0, 0, std::signbit(d), 0); return Status::Ok; }
    // 15 significant digits, correctly rounded from the exact binary value.
    {
        u64 N = 0;
        int k = 0;
        if (fifteenDigitsExact(a, N, k) || fifteenDigits(a, N, k)) {
            // a ≈ N / 10^k, N of 15 digits: trailing zeros carry no scale.
            while (k > 0 && N % 10 == 0) { N /= 10; --k; }
            if (k <= Decimal96::kMaxScale) {
                u128 m = N;
                if (k < 0) { m *= kPow10[-k]; k = 0; }
                if (m <= kMaxMantissa) { out = make(m, std::signbit(d), k); return Status::Ok; }
            }
        }
    }
    char buf[40];
    auto res = std::to_chars(buf, buf + sizeof buf, a, std::chars_format::scientific, 14);
    // buf: d.dddddddddddddde±XX
    ParsedNumber p;
    p.negative = std::signbit(d);
    const char* e = std::find(buf, res.ptr, 'e');
    int exp10 = 0;
    std::from_chars(e + (e[1] == '+' ? 2 : 1), res.ptr, exp10);
    for (const char* c = buf; c < e; ++c)
        if (*c != '.') p.digits[p.count++] = *c;
    while (p.count > 0 && p.digits[p.count - 1] == '0') --p.count;   // dropped: the 15 digits carry no scale
    p.nonzeroEnd = p.count;
    p.zero = p.count == 0;
    p.pointExp = exp10 + 1;
    return decimalFromParsed(p, out);
}

double Decimal96::toDouble() const {
    u128 m = mant(*this);
    double r;
    if ((m >> 53) == 0 && scale_ <= 22) {
        // Both operands exact in binary64: one correctly rounded division.
        // 10^0 .. 10^22 are exact doubles (5^22 < 2^53).
        static constexpr double kExact[23] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11,
                                              1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
        static_assert(sizeof kExact / sizeof kExact[0] == 23);
        r = static_cast<double>(static_cast<u64>(m)) / kExact[scale_];
    } else if (longDoubleQuotient(m, scale_, r)) {
        // r holds the correctly rounded quotient.
    } else {
        char buf[48];
        int n = mantissaText(m, buf);
        buf[n++] = 'e';
        buf[n++] = '-';
        auto res = std::to_chars(buf + n, buf + sizeof buf, int(scale_));
        r = 0;
        std::from_chars(buf, res.ptr, r);
    }
    return neg_ ? -r : r;
}

QString Decimal96::toText() const {
    u128 m = mant(*this);
    if (m == 0) return QStringLiteral("0");
    char digits[40];
    int n = mantissaText(m, digits);
    char out[48];
    int o = 0;
    if (neg_) out[o++] = '-';
    int sc = scale_;
    // Drop trailing zeros of the fraction.
    int fracEnd = n;
    while (sc > 0 && digits[fracEnd - 1] == '0') { --fracEnd; --sc; }
    if (sc >= fracEnd) {
        out[o++] = '0';
        out[o++] = '.';
        for (int k = 0; k < sc - fracEnd; ++k) out[o++] = '0';
        for (int k = 0; k < fracEnd; ++k) out[o++] = digits[k];
    } else {
        int intLen = fracEnd - sc;
        for (int k = 0; k < intLen; ++k) out[o++] = digits[k];
        if (sc > 0) {
            out[o++] = '.';
            for (int k = intLen; k < fracEnd; ++k) out[o++] = digits[k];
        }
    }
    return fromAscii(out, o);
}

// ---- arithmetic ---------------------------------------------------------

Decimal96::Status Decimal96::add(const Decimal96& a, const Decimal96& b, Decimal96& out) {
    return addCore(a, b.neg_, b, out);
}

Decimal96::Status Decimal96::sub(const Decimal96& a, const Decimal96& b, Decimal96& out) {
    return addCore(a, !b.neg_, b, out);
}

Decimal96::Status Decimal96::mul(const Decimal96& a, const Decimal96& b, Decimal96& out) {
    bool neg = a.neg_ != b.neg_;
    int scale = a.scale_ + b.scale_;
    const bool small = (a.hi_ | b.hi_) == 0;
    if (small) {
        u128 p = u128(a.lo64_) * b.lo64_;
        if (p <= kMaxMantissa && scale <= kMaxScale) { out = make(p, neg, scale); return Status::Ok; }
    }
    u128 ma = mant(a), mb = mant(b);
    // Halving (b = 0.5 as written, 5 at scale 1; the square roots take it
    // twice a step): 5·m at scale + 1 when that fits, else one digit
    // dropped, which is m/2 rounded half-even at a's own scale (the product
    // 5·m < 10·2^96 never needs a second digit dropped).
    if ((mb == 5 && b.scale_ == 1) || (ma == 5 && a.scale_ == 1)) {
        const bool bHalf = mb == 5 && b.scale_ == 1;
        const u128 m = bHalf ? ma : mb;
        const int own = bHalf ? a.scale_ : b.scale_;
        if (scale <= kMaxScale && m <= kMaxMantissa / 5) { out = make(m * 5, neg, scale); return Status::Ok; }
        u128 q = m >> 1;
        if ((m & 1) && (q & 1)) ++q;
        out = make(q, neg, own);
        return Status::Ok;
    }
    // A product within 128 bits (two of 64 bits, or a factor of 32 bits or
    // less against any other) takes the 128-bit fit.
    if (small || bitLength(ma) + bitLength(mb) <= 128) return fit128(ma * mb, scale, neg, out);
    U192 p = mulWide(ma, mb);
    return fitResult(p, scale, neg, false, out);
}

Decimal96::Status Decimal96::div(const Decimal96& a, const Decimal96& b, Decimal96& out) {
    u128 mb = mant(b);
    if (mb == 0) return Status::DivideByZero;
    bool neg = a.neg_ != b.neg_;
    u128 ma = mant(a);
    int natural = int(a.scale_) - int(b.scale_);
    int scale = natural;
    u128 q, r;
    if (natural < 0) {
        // Raise the dividend to scale 0 first.
        U192 n = mulWide(ma, kPow10[-natural]);
        scale = 0;
        // The quotient must fit 96 bits at scale 0.
        if (n.shr96() >= mb) return Status::Overflow;   // n / mb >= 2^96
        q = divmod(n, mb, r);
    } else if ((ma >> 64) == 0 && (mb >> 64) == 0) {
        u64 a64 = static_cast<u64>(ma), b64 = static_cast<u64>(mb);
        q = a64 / b64;
        r = a64 % b64;
    } else if (ma < mb) {
        q = 0;   // operands of one size (a root's Newton step): no division yet
        r = ma;
    } else if (ma - mb < mb) {
        q = 1;
        r = ma - mb;
    } else {
        q = divmod(U192(ma), mb, r);
    }
    int floorScale = std::max(natural, 0);
    // More digits while a remainder is left, the quotient fits 96 bits and
    // the scale stays within 28. A chunk of j digits is safe when q has
    // 28 - j digits or fewer: (q + 1) * 10^j <= 10^28 < 2^96. Then q has 28
    // digits, and one more digit is tried exactly (two never fit).
    while (r != 0 && scale < kMaxScale) {
        int room = kMaxScale - scale;
        int j = kMaxScale - (q == 0 ? 0 : digitCount(q));
        if (j > room) j = room;
        if (j > 0) {
            // After a chunk behind a nonzero q, q has 28 digits and the one
            // digit more below is tried whenever room is left: that digit is
            // taken in the same division, and given back if it does not fit.
            const bool withDigit = q != 0 && j < room;
            const int jj = withDigit ? j + 1 : j;
            u128 q2;
            if ((mb >> 64) == 0 && jj <= 19) {
                // r < mb < 2^64, r * 10^jj < 2^128, quotient < 10^jj < 2^64.
                u128 n = r * kPow10[jj];
                u64 rr;
                q2 = div128by64(static_cast<u64>(n >> 64), static_cast<u64>(n), static_cast<u64>(mb), rr);
                r = rr;
            } else {
                q2 = divmod(mulWide(r, kPow10[jj]), mb, r);
            }
            const u128 nq = q * kPow10[jj] + q2;   // below 10^29
            if (!withDigit) {
                q = nq;
                scale += j;
                continue;
            }
            if (nq <= kMaxMantissa) {
                q = nq;
                scale += jj;
            } else {
                // Without the last digit d: q = nq / 10, and the remainder
                // of the shorter quotient is (d·mb + r) / 10, exactly.
                u64 d;
                q = divPow10Fast(nq, 1, d);
                u64 zero;
                r = divPow10Fast(u128(d) * mb + r, 1, zero);
                scale += j;
            }
            break;
        }
        // One digit, only if it still fits.
        u128 q2;
        u128 nr;
        if ((mb >> 64) == 0) {
            u128 n = r * 10;
            u64 rr;
            q2 = div128by64(static_cast<u64>(n >> 64), static_cast<u64>(n), static_cast<u64>(mb), rr);
            nr = rr;
        } else {
            q2 = divmod(mulWide(r, 10), mb, nr);
        }
        u128 nq = q * 10 + q2;
        if (nq > kMaxMantissa) break;
        q = nq;
        r = nr;
        scale += 1;
        break;   // the next digit cannot fit: 10 * nq > 2^96
    }
    if (r == 0) {
        stripZeros(q, scale, floorScale);
        out = make(q, neg, scale);
        return Status::Ok;
    }
    // Round the last digit by the remainder: compare 2r with the divisor.
    u128 twice = r << 1;   // r < 2^96
    if (twice > mb || (twice == mb && (q & 1))) ++q;
    if (q <= kMaxMantissa) { out = make(q, neg, scale); return Status::Ok; }
    // The rounding carried to 2^96: one digit less, the original remainder
    // still lying below (q - 1 + r/mb, with r/mb >= 1/2).
    return fitResult(U192(q - 1), scale, neg, true, out, 1);
}

int Decimal96::compare(const Decimal96& a, const Decimal96& b) {
    bool za = a.isZero(), zb = b.isZero();
    if (za && zb) return 0;
    int sa = za ? 0 : (a.neg_ ? -1 : 1);
    int sb = zb ? 0 : (b.neg_ ? -1 : 1);
    if (sa != sb) return sa < sb ? -1 : 1;
    // Same nonzero sign: compare magnitudes.
    u128 ma = mant(a), mb = mant(b);
    int c;
    if (a.scale_ == b.scale_) {
        c = ma < mb ? -1 : (ma > mb ? 1 : 0);
    } else if (a.scale_ < b.scale_) {
        const int d = b.scale_ - a.scale_;
        if (ma <= kAlignLimit[d]) {
            const u128 x = ma * kPow10[d];
            c = x < mb ? -1 : (x > mb ? 1 : 0);
        } else {
            c = cmp(mulWide(ma, kPow10[d]), U192(mb));
        }
    } else {
        const int d = a.scale_ - b.scale_;
        if (mb <= kAlignLimit[d]) {
            const u128 y = mb * kPow10[d];
            c = ma < y ? -1 : (ma > y ? 1 : 0);
        } else {
            c = cmp(U192(ma), mulWide(mb, kPow10[d]));
        }
    }
    return sa < 0 ? -c : c;
}

Decimal96 Decimal96::rounded(int decimals, Rounding mode) const {
    decimals = std::clamp(decimals, 0, kMaxScale);
    if (decimals >= scale_) return *this;
    int k = scale_ - decimals;
    u128 m = mant(*this);
    u128 r;
    u128 q = divPow10(m, k, r);
    u128 half = kPow10[k] / 2;
    switch (mode) {
    case Rounding::HalfAwayFromZero:
        if (r >= half) ++q;
        break;
    case Rounding::HalfEven:
        if (r > half || (r == half && (q & 1))) ++q;
        break;
    case Rounding::TowardZero:
        break;
    }
    return make(q, neg_, decimals);   // q <= (2^96-1)/10 + 1: fits
}

Decimal96 Decimal96::normalized() const {
    u128 q = mant(*this);
    int sc = scale_;
    stripZeros(q, sc, 0);
    return make(q, neg_, sc);
}

int Decimal96::mantissaDigits() const { return digitCount(mant(*this)); }

int Decimal96::integerDigits() const {
    u128 r;
    u128 ip = divPow10(mant(*this), scale_, r);
    return ip == 0 ? 0 : digitCount(ip);
}

bool Decimal96::toInt64(std::int64_t& out) const {
    u128 r;
    u128 ip = divPow10(mant(*this), scale_, r);
    if (r != 0) return false;
    if (neg_) {
        if (ip > u128(u64(1) << 63)) return false;
        out = ip == 0 ? 0 : static_cast<std::int64_t>(u64(0) - static_cast<u64>(ip));
    } else {
        if (ip > u128(std::numeric_limits<std::int64_t>::max())) return false;
        out = static_cast<std::int64_t>(ip);
    }
    return true;
}

// ---- doubles and their text ---------------------------------------------

bool 文本转双精度(QStringView text, double& out) {
    ParsedNumber p;
    if (!parseNumber(text, p)) return false;
    if (p.zero) { out = p.negative ? -0.0 : 0.0; return true; }
    // Doubles lie within 1E-324 .. 1.8E+308: beyond these the answer is
    // plain, and the clamp keeps the exponent text short.
    if (p.pointExp > 400) return false;
    if (p.pointExp < -400) { out = p.negative ? -0.0 : 0.0; return true; }
    // Normalised text "0.ddd…[1]e<pointExp>" for the correctly rounded
    // reader; a dropped nonzero tail becomes one trailing 1, which settles
    // any tie the kept digits would show.
    char buf[ParsedNumber::kKeep + 16];
    int n = 0;
    buf[n++] = '0';
    buf[n++] = '.';
    std::memcpy(buf + n, p.digits, p.nonzeroEnd);
    n += p.nonzeroEnd;
    if (p.sticky) buf[n++] = '1';
    buf[n++] = 'e';
    auto res = std::to_chars(buf + n, buf + sizeof buf, static_cast<int>(p.pointExp));
    double v = 0;
    auto r = std::from_chars(buf, res.ptr, v);
    if (r.ec == std::errc::result_out_of_range) {
        if (p.pointExp > 0) return false;   // overflow
        v = 0;                               // underflow
    } else if (r.ec != std::errc() || !std::isfinite(v)) {
        return false;
    }
    out = p.negative ? -v : v;
    return true;
}

QString 双精度文本(double d) {
    if (std::isnan(d)) return QStringLiteral("NaN");
    if (std::isinf(d)) return d < 0 ? QStringLiteral("-Infinity") : QStringLiteral("Infinity");
    if (d == 0) return QStringLiteral("0");
    char buf[40];
    auto res = std::to_chars(buf, buf + sizeof buf, std::fabs(d), std::chars_format::scientific, 14);
    const char* e = std::find(buf, res.ptr, 'e');
    int exp10 = 0;
    std::from_chars(e + (e[1] == '+' ? 2 : 1), res.ptr, exp10);
    char digits[16];
    int n = 0;
    for (const char* c = buf; c < e; ++c)
        if (*c != '.') digits[n++] = *c;
    while (n > 1 && digits[n - 1] == '0') --n;
    char out[48];
    int o = 0;
    if (d < 0) out[o++] = '-';
    int places = n - 1 - exp10;   // digits needed behind the point
    if (exp10 < 15 && places <= 15) {
        if (exp10 < 0) {
            out[o++] = '0';
            out[o++] = '.';
            for (int k = 0; k < -exp10 - 1; ++k) out[o++] = '0';
            for (int k = 0; k < n; ++k) out[o++] = digits[k];
        } else {
            for (int k = 0; k <= exp10; ++k) out[o++] = k < n ? digits[k] : '0';
            if (n > exp10 + 1) {
                out[o++] = '.';
                for (int k = exp10 + 1; k < n; ++k) out[o++] = digits[k];
            }
        }
    } else {
        out[o++] = digits[0];
        if (n > 1) {
            out[o++] = '.';
            for (int k = 1; k < n; ++k) out[o++] = digits[k];
        }
        out[o++] = 'E';
        out[o++] = exp10 < 0 ? '-' : '+';
        int ae = exp10 < 0 ? -exp10 : exp10;
        if (ae < 10) out[o++] = '0';
        auto r2 = std::to_chars(out + o, out + sizeof out, ae);
        o = static_cast<int>(r2.ptr - out);
    }
    return fromAscii(out, o);
}
