#include "numeric/powers.h"

#include "numeric/guarded.h"
#include "numeric/rounding.h"
#include "numeric/text.h"
#include "numeric/state.h"

#include <cmath>
#include <vector>

namespace {

using 状态 = Decimal96::Status;

QString 修剪文本(const 数值& v) { return txt::trim(v.文本()); }

// A decimal or small integer always reads as digits, so only text (and the
// rare double) needs the trimmed reading.
bool 是空白(const 数值& v) {
    if (v.是空()) return true;
    if (v.是十进制() || v.是整数()) return false;
    return 修剪文本(v).isEmpty();
}

// The value itself as a decimal. A blank operand is what Hvt数转数 made of
// it (zero), since 转十进制 refuses a blank text.
bool 原值十进制(const 数值& v, const 数值& 读数, Decimal96& out) {
    return 转十进制(是空白(v) ? 读数 : v, out);
}
bool 原值双精度(const 数值& v, double& out) {
    if (是空白(v)) { out = 0.0; return true; }
    return 转双精度(v, out);
}

// HvtE位置(v) >= 1 without building a decimal's text: a decimal's text
// never has an exponent.
bool 有E(const 数值& v) { return !v.是十进制() && HvtE位置(v) >= 1; }

constexpr Decimal96 k一 = Decimal96::fromParts(1, 0, 0, false, 0);
constexpr Decimal96 k零;
// 0.5 as the double 0.5 converted by the 15-digit rule: exactly 5 at scale 1.
constexpr Decimal96 k半 = Decimal96::fromParts(5, 0, 0, false, 1);

void 降为二十八位() {
    if (计算状态.可达有效位数 > 28) 计算状态.可达有效位数 = 28;
}

// ---- x^I by the doubling scheme ---------------------------------------------
// The order of the decimal products is part of the last digits of a power, so
// the scheme is kept as it stands; the exponents of P, Q and R are tracked
// beside it so that the round stops as soon as R holds A^I (the remaining
// rounds of the scheme no longer touch R). A few exponents (just below a
// power of two) make the scheme creep one step a round; past 轮数上限 rounds
// the power is computed afresh by square-and-multiply instead, so no
// exponent can hold the thread for long.
using 大整数 = unsigned __int128;
constexpr long 轮数上限 = 300000;

bool 平方乘幂(const Decimal96& A, 大整数 I, Decimal96& R) {
    Decimal96 底 = A, 积 = k一;
    while (I > 0) {
        if (I & 1) {
            if (Decimal96::mul(积, 底, 积) != 状态::Ok) return false;
        }
        I >>= 1;
        if (I > 0 && Decimal96::mul(底, 底, 底) != 状态::Ok) return false;
    }
    R = 积;
    return true;
}

bool 整数幂(const Decimal96& A, 大整数 I, Decimal96& Rout) {
    Decimal96 R = k一, P = k一, Q = k一;
    大整数 eR = 0, eP = 0, eQ = 0;  // exponents of A held by R, P, Q
    大整数 rem = I;
    long 轮 = 0;
    auto 乘 = [](const Decimal96& a, const Decimal96& b, Decimal96& out) {
        return Decimal96::mul(a, b, out) == 状态::Ok;
    };
    for (大整数 k = 1; k <= I; ++k) {
        if (eR == I) break;
        if (++轮 > 轮数上限) return 平方乘幂(A, I, Rout);
        const 大整数 j = k;
        if (!乘(A, P, P)) return false;
        eP += 1;
        Q = P; eQ = eP;
        if (rem == k) {
            if (!乘(P, R, R)) return false;
            eR += eP;
        }
        if (rem >= j + j) {
            if (!乘(Q, Q, P)) return false;
            eP = eQ + eQ;
            k = j + j;
            if (rem == k) {
                if (!乘(P, R, R)) return false;
                eR += eP;
            }
            // "rem - k" may be negative in the scheme; compare without wrapping.
            if (k < rem && j > rem - k) {
                if (!乘(P, R, R)) return false;
                eR += eP;
                rem -= k;
                k = 0;
                P = k一; eP = 0;
            }
            if (k <= rem && j < rem - k && k > rem - k) {
                if (!乘(Q, P, P)) return false;
                eP += eQ;
                if (!乘(P, R, R)) return false;
                eR += eP;
                rem = rem - k - j;
                k = 0;
                P = k一; eP = 0;
            }
        }
    }
    Rout = R;
    return true;
}

// The square root of A >= 0 in decimal. A perfect square of the 15-digit
// double root is taken as it is (迭代 false); otherwise Newton's step twice a
// round, then Aitken's Δ² over the three last values, at most 50 rounds from
// a start 1E-14 above the double root. False on a decimal fault.
bool 平方根(const Decimal96& A, Decimal96& out, bool& 迭代) {
    迭代 = false;
    Decimal96 t, tt;
    if (Decimal96::fromDouble(std::sqrt(A.toDouble()), t) != 状态::Ok) return false;
    // Only an exact square counts: t has no trailing zeros, so t·t is exact
    // when its scale 2·scale(t) is within 28; a product rounded at the 28th
    // place would pass a tiny A with a 15-digit root.
    if (t.scale() * 2 <= Decimal96::kMaxScale && Decimal96::mul(t, t, tt) == 状态::Ok && tt == A) {
        out = t;
        return true;
    }
    // The start offset, 1E-14 taken by the 15-digit rule; converted once.
    static const Decimal96 起步差 = [] {
        Decimal96 d;
        Decimal96::fromDouble(1E-14, d);
        return d;
    }();
    Decimal96 B;
    if (Decimal96::add(t, 起步差, B) != 状态::Ok) return false;

    auto 牛顿 = [&A](const Decimal96& b, Decimal96& o) {
        Decimal96 q, s;
        return Decimal96::div(A, b, q) == 状态::Ok && Decimal96::add(q, b, s) == 状态::Ok &&
               Decimal96::mul(k半, s, o) == 状态::Ok;
    };
    for (int i = 1; i < 51; ++i) {
        if (B.isZero()) break;
        t = B;
        Decimal96 C;
        if (!牛顿(B, B) || !牛顿(B, C)) return false;
        Decimal96 D;
        if (Decimal96::sub(C, B, D) != 状态::Ok) return false;
        if (D.isZero()) break;
        Decimal96 DD, 分母, 修正, 分母1;
        if (Decimal96::mul(D, D, DD) != 状态::Ok || Decimal96::sub(D, B, 分母1) != 状态::Ok ||
            Decimal96::add(分母1, t, 分母) != 状态::Ok)
            return false;
        // A second difference of exactly zero means the three values already
        // agree to the decimal's last place: C is the root.
        if (分母.isZero()) { B = C; break; }
        if (Decimal96::div(DD, 分母, 修正) != 状态::Ok || Decimal96::sub(C, 修正, B) != 状态::Ok) return false;
        if (B == C) break;
    }
    out = B;
    迭代 = true;
    return true;
}

// The decimal square root of A with its range shift and the lowering of the
// reachable digits (only when the root was iterated). False when A < 0 or
// on a decimal fault; nothing is reported then.
bool 十进制开平方(Decimal96 A, Decimal96& r) {
    if (A < k零) return false;

    // Below 1E-16 the iteration's own quantities (the 1E-14 start offset,
    // the square of the step in Aitken's term) fall under the decimal's last
    // place and stop it early. Such an A is shifted by an even power of ten
    // to 0.1 .. 100 (exactly: only the scale changes), rooted there, and
    // shifted back by half the power.
    static constexpr Decimal96 k小界 = Decimal96::fromParts(1, 0, 0, false, 16);  // 1E-16
    int 半移 = 0;
    if (!A.isZero() && A < k小界) {
        int 位数 = 0;
        for (unsigned __int128 m = (static_cast<unsigned __int128>(A.hi()) << 64) |
                                   (static_cast<unsigned __int128>(A.mid()) << 32) | A.lo();
             m != 0; m /= 10)
            ++位数;
        int 移 = A.scale() - 位数 + 1;
        if (移 % 2 != 0) 移 -= 1;
        半移 = 移 / 2;
        A = Decimal96::fromParts(A.lo(), A.mid(), A.hi(), false, A.scale() - 移);
    }

    bool 迭代 = false;
    if (!平方根(A, r, 迭代)) return false;
    if (半移 > 0) {
        Decimal96 幂 = k一;
        const Decimal96 k十 = Decimal96::fromParts(10, 0, 0, false, 0);
        for (int i = 0; i < 半移; ++i) Decimal96::mul(幂, k十, 幂);
        if (Decimal96::div(r, 幂, r) != 状态::Ok) return false;
    }
    if (迭代) 降为二十八位();
    return true;
}

// The chain of square roots e^(1/2), e^(1/4), ... that the fractional part
// of every power of e walks (each hyperbolic function takes two such
// powers). The roots are the very ones the loop below would compute, by the
// same procedure, made once on first need and kept; `迭代` records whether
// the procedure iterated for a root, so that the lowering of the reachable
// digits happens exactly as if the root were taken afresh. Like the shared
// state block, the chain belongs to the one thread that calculates.
struct 根链项 {
    Decimal96 根;
    bool 迭代 = false;
    bool 是一 = false;   // the root is exactly 1: the rounds stop there
};
// e to 28 places: 2.7182818284590452353602874714, the decimal of the
// evaluator's constant text (27182818284590452353602874714 = 0x57D519AB_EBECDE35_857AED5A).
constexpr Decimal96 k自然常数 = Decimal96::fromParts(0x857AED5Au, 0xEBECDE35u, 0x57D519ABu, false, 28);

// Root k (1-based) of the chain of e, or false when the chain cannot give it
// (a decimal fault, never seen for e; the caller then takes the root itself).
bool 自然常数根(int k, Decimal96& out, bool& 是一, bool& 迭代) {
    static std::vector<根链项> 链;
    while (static_cast<int>(链.size()) < k) {
        const Decimal96 前 = 链.empty() ? k自然常数 : 链.back().根;
        根链项 项;
        if (!平方根(前, 项.根, 项.迭代)) return false;
        项.是一 = 项.根 == k一;
        链.push_back(项);
    }
    const 根链项& 项 = 链[static_cast<std::size_t>(k - 1)];
    if (项.迭代) 降为二十八位();
    out = 项.根;
    是一 = 项.是一;
    迭代 = 项.迭代;
    return true;
}

// The last power of e taken through the chain: e^|y| for the exponent
// magnitude 指数 (as a decimal, scale included). A hyperbolic function
// takes e^x and e^-x, which both come to this same product before the
// latter's division; the second is read from here. 降 says whether a root
// of the walk was iterated, so that the reachable digits fall as they
// would.
struct 上次e幂 {
    bool 有 = false;
    Decimal96 指数;
    Decimal96 R;
    bool 降 = false;
};
上次e幂 e幂缓存;

bool 同一十进制(const Decimal96& a, const Decimal96& b) {
    return a.scale() == b.scale() && a.negative() == b.negative() && a.lo() == b.lo() && a.mid() == b.mid() &&
           a.hi() == b.hi();
}

数值 开平方失败(const 数值& x) {
    报告错误(QStringLiteral("  进行[开平方]运算时， ") + 修剪文本(x) +
             QStringLiteral(" 数值超出计算范围！返回数值用 [1] 表示。"));
    return 数值(QStringLiteral("1"));
}

enum class 结局 { 成, 转双精度, 失败 };

// The decimal tier of 乘方. `a`, `b` are the Hvt数转数 readings of x, y.
结局 十进制乘方(const 数值& x, const 数值& y, const 数值& a, const 数值& b, 数值& out) {
    // Probe in double: a result the decimal cannot carry never enters the loops.
    double ad = 0, bd = 0;
    if (!转双精度(a, ad) || !转双精度(b, bd)) return 结局::转双精度;
    // The square root of a negative base is the root's own failure (its
    // message names the root), not the general one of the power.
    if (ad < 0 && std::fabs(bd) == 0.5) {
        out = 开平方(x);
        return 结局::成;
    }
    const double p = std::pow(ad, bd);
    if (!std::isfinite(p)) return 结局::转双精度;
    if (有E(Hvt数转数(数值(p)))) return 结局::转双精度;

    Decimal96 A, B;
    if (!原值十进制(x, a, A) || !原值十进制(y, b, B)) return 结局::转双精度;

    if (B == k半) {
        out = 开平方(x);
    } else if (B == k半.negated()) {
        Decimal96 根, 商;
        if (!转十进制(开平方(x), 根)) return 结局::转双精度;
        if (Decimal96::div(k一, 根, 商) != 状态::Ok) return 结局::转双精度;
        out = 数值(商);
    } else {
        if (A.isZero()) {
            if (B.negative()) return 结局::失败;
            out = 数值(k零);
            return 结局::成;  // 0^y: no iteration, 可达有效位数 untouched
        }
        const Decimal96 C = B.abs();
        const Decimal96 整 = C.rounded(0, Decimal96::Rounding::TowardZero);
        // F is "0." and the fraction digits of C's text, read back: that is
        // C minus its integer part exactly (a decimal's text is plain
        // digits), so the subtraction gives the same value without the
        // text; the scale it carries may differ, which no later step sees
        // (F only meets comparisons and exact subtractions).
        Decimal96 F;
        if (Decimal96::sub(C, 整, F) != 状态::Ok) return 结局::转双精度;

        // The integer part as a count (C < 7.93E+28 fits 128 bits; 整 has
        // scale 0, so its mantissa is the count).
        const 大整数 I = (static_cast<大整数>(整.hi()) << 64) | (static_cast<大整数>(整.mid()) << 32) | 整.lo();

        auto 求幂 = [&](const Decimal96& 底, Decimal96& R) -> bool {
            const bool 底为e = 同一十进制(底, k自然常数);
            if (底为e && e幂缓存.有 && 同一十进制(e幂缓存.指数, C)) {
                R = e幂缓存.R;
                if (e幂缓存.降) 降为二十八位();
                return true;
            }
            if (!整数幂(底, I, R)) return false;
            if (F.isZero() || !(k零 < F)) return true;
            Decimal96 P = 底, Q = k一, 余 = F;
            bool 全在链上 = 底为e, 有迭代 = false;
            for (int 轮 = 0; 轮 < 93; ++轮) {
                if (Decimal96::mul(Q, k半, Q) != 状态::Ok) return false;
                // As 开平方(数值(P)) read back: a failed root reports and
                // stands as 1, which ends the rounds.
                Decimal96 根;
                bool 到一 = false, 迭代 = false;
                if (底为e && 自然常数根(轮 + 1, 根, 到一, 迭代)) {
                    P = 根;
                    有迭代 = 有迭代 || 迭代;
                } else if (十进制开平方(P, 根)) {
                    全在链上 = false;
                    P = 根;
                    到一 = P == k一;
                } else {
                    全在链上 = false;
                    开平方失败(数值(P));
                    P = k一;
                    到一 = true;
                }
                if (到一) break;
                if (!(余 < Q)) {
                    if (Decimal96::sub(余, Q, 余) != 状态::Ok) return false;
                    if (Decimal96::mul(P, R, R) != 状态::Ok) return false;
                    if (余.isZero()) break;
                }
            }
            if (全在链上) e幂缓存 = {true, C, R, 有迭代};
            return true;
        };

        Decimal96 R;
        if (!求幂(A, R)) return 结局::转双精度;
        if (!B.negative()) {
            out = 数值(R);
        } else {
            if (R.isZero()) return 结局::失败;
            // A base below 1 with a negative exponent: A^|y| below 0.1 has lost
            // digits at the 28th place (one for each leading zero), and 1/R
            // would show that loss in its leading digits. Then the power is
            // taken of 1/A instead, which is above 1 and keeps its digits.
            static constexpr Decimal96 k微 = Decimal96::fromParts(1, 0, 0, false, 1);  // 0.1
            if (R.abs() < k微) {
                Decimal96 倒底;
                if (Decimal96::div(k一, A, 倒底) != 状态::Ok) return 结局::转双精度;
                if (!求幂(倒底, R)) return 结局::转双精度;
                out = 数值(R);
            } else {
                Decimal96 商;
                if (Decimal96::div(k一, R, 商) != 状态::Ok) return 结局::转双精度;
                out = 数值(商);
            }
        }
    }
    if (计算状态.可达有效位数 == 29) 计算状态.可达有效位数 = 28;
    return 结局::成;
}

数值 乘方失败(const 数值& x, const 数值& y) {
    报告错误(修剪文本(x) + QStringLiteral("^") + 修剪文本(y) +
             QStringLiteral(" 乘方计算超出本程序计算范围！返回 [1] 。"));
    return 数值(QStringLiteral("1"));
}

数值 对数(const 数值& x, bool 常用) {
    const 数值 a = Hvt数转数(x);
    double d = 0;
    if (!转双精度(a, d) || !(d > 0)) {
        报告错误(常用 ? QStringLiteral("lg(x)的x 小于等于0错误。") : QStringLiteral("ln(x)的x 小于等于0错误。"));
        return 数值(QStringLiteral("1"));
    }
    const double r = 常用 ? std::log(d) / std::log(10.0) : std::log(d);
    记录精度损失();
    return 数值(r);
}

}  // namespace

数值 乘方(const 数值& x, const 数值& y) {
    const 数值 b = Hvt数转数(y);
    if (是零(b)) return 数值(k一);
    const 数值 a = Hvt数转数(x);

    if (计算状态.高精度开关 && !有E(b) && !有E(a)) {
        数值 r;
        switch (十进制乘方(x, y, a, b, r)) {
        case 结局::成: return r;
        case 结局::失败: return 乘方失败(x, y);
        case 结局::转双精度: break;
        }
    }

    double xd = 0, yd = 0;
    if (!原值双精度(x, xd) || !原值双精度(y, yd)) return 乘方失败(x, y);
    const double r = std::pow(xd, yd);
    if (!std::isfinite(r)) return 乘方失败(x, y);
    记录精度损失();
    return 数值(r);
}

数值 开平方(const 数值& x) {
    if (!计算状态.高精度开关) {
        double d = 0;
        if (!原值双精度(x, d) || d < 0) return 开平方失败(x);
        记录精度损失();
        return 数值(std::sqrt(d));
    }

    Decimal96 A, r;
    if (!原值十进制(x, 数值(k零), A) || !十进制开平方(A, r)) return 开平方失败(x);
    return 数值(r);
}

数值 求自然对数(const 数值& x) { return 对数(x, false); }
数值 求常用对数(const 数值& x) { return 对数(x, true); }
