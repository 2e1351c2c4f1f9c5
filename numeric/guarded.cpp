#include "numeric/guarded.h"

#include "numeric/guarded_detail.h"
#include "numeric/rounding.h"
#include "numeric/text.h"
#include "numeric/state.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace guarded_detail {

QString 修剪文本(const 数值& x) {
    return txt::trim(x.文本());
}

// Text values are trimmed first so that every reader agrees on what a
// blank is; a blank text is the number 0.
static 数值 修剪值(const 数值& x) {
    if (!x.是文本()) return x;
    const QString t = txt::trim(x.文本值());
    if (t.isEmpty()) return 数值();
    return 数值(t);
}

bool 作十进制(const 数值& x, Decimal96& out) {
    return 转十进制(修剪值(x), out);
}

bool 作双精度(const 数值& x, double& out) {
    return 转双精度(修剪值(x), out);
}

int 有效位数(const QString& s) {
    int n = 0;
    for (const QChar c : s) {
        const char16_t u = c.unicode();
        if (u >= u'1' && u <= u'9') ++n;
        else if (u == u'0') { if (n > 0) ++n; }
        else if (u == u' ' || u == u'.' || u == u'+' || u == u'-') continue;
        else break;
    }
    return n;
}

int E位置(const QString& s) {
    for (qsizetype i = 0; i < s.size(); ++i)
        if (s[i] == u'E' || s[i] == u'e') return static_cast<int>(i) + 1;
    return 0;
}

// Bounds inside which a double may become a decimal. The top stops a
// little short of the decimal's true maximum (7.9228162514264337593543950335E+28)
// and the bottom is the decimal's smallest step, 1E-28: beyond them the
// digits of a decimal would not be worth more than the double's.
// 有效位数(r.toText()) without building the text: the text shows the
// mantissa's digits less the fraction's trailing zeros.
static int 十进制文本有效位数(const Decimal96& r) {
    unsigned __int128 m = (static_cast<unsigned __int128>(r.hi()) << 64) |
                          (static_cast<unsigned __int128>(r.mid()) << 32) | r.lo();
    int sc = r.scale();
    while (sc > 0 && m != 0 && m % 10 == 0) {
        m /= 10;
        --sc;
    }
    int n = 0;
    for (unsigned __int128 p = 1; p <= m && n < 39; p *= 10) ++n;
    return n;
}

// 有效位数(双精度文本(d)) for a finite d without building the text: the
// text holds d's 15 significant digits less trailing zeros, padded with
// zeros up to the point when it is an integer written without exponent.
static int 双精度文本有效位数(double d) {
    if (d == 0) return 0;
    char buf[40];
    const auto res = std::to_chars(buf, buf + sizeof buf, std::fabs(d), std::chars_format::scientific, 14);
    const char* e = std::find(buf, res.ptr, 'e');
    int exp10 = 0;
    std::from_chars(e + (e[1] == '+' ? 2 : 1), res.ptr, exp10);
    int n = 0, 末非零 = 0;
    for (const char* c = buf; c < e; ++c) {
        if (*c == '.') continue;
        ++n;
        if (*c != '0') 末非零 = n;
    }
    n = std::max(1, 末非零);
    const int places = n - 1 - exp10;
    if (exp10 >= 0 && exp10 < 15 && places <= 15) return std::max(n, exp10 + 1);
    return n;
}

constexpr double k十进制上界 = 7.92281625142642E+28;
constexpr double k十进制下界 = 1E-28;

// The rule in full, for any value: the double d decides the bounds, the
// decimal made from the value itself must keep as many digits as d's text.
static 转换结果 一般转换(const 数值& v, 数值& out) {
    double d = 0.0;
    if (!转双精度(v, d)) return 转换结果::失败;
    if (!计算状态.高精度开关) {
        out = 数值(d);
        return 转换结果::落双精度;
    }
    const bool 界内 = d == 0.0 || (d > -k十进制上界 && d <= -k十进制下界) ||
                      (d >= k十进制下界 && d < k十进制上界);
    Decimal96 r;
    if (!界内 || !转十进制(v, r)) {
        out = 数值(d);
        return 转换结果::落双精度;
    }
    // 有效位数(双精度文本(d)) is at most 15, so a decimal of 15 digits or
    // more never needs the double's text.
    const int 十进制位数 = 十进制文本有效位数(r);
    if (十进制位数 >= 15 || 双精度文本有效位数(d) <= 十进制位数) {
        out = 数值(r);
        return 转换结果::十进制;
    }
    out = 数值(d);
    return 转换结果::落双精度;
}

// A decimal r that holds its number exactly, below 1E+28 in magnitude,
// passes the rule above unchanged, so neither d nor its text is needed:
//   * a nonzero decimal is at least 1E-28, so d lies within the bounds;
//   * with fewer than 15 significant digits, d printed to 15 digits gives
//     back r's digits (any decimal of up to 15 digits survives the trip
//     through a double), so d's text counts as many digits as r's.
static bool 十进制无需双精度(const Decimal96& r) {
    // Below 1E+28: any fraction does (the mantissa stays under 2^96 < 1E+29),
    // an integer needs a mantissa below 0x204FCE5E << 64 (just under 1E+28).
    return r.scale() > 0 || r.hi() < 0x204FCE5Eu;
}

// The shape of a number text that Decimal96::fromText accepted: how many
// digits lie from the first nonzero one to the last, and where the first
// one stands (the number is 0.d1d2... × 10^首位).
struct 文本数形 {
    int 有效 = 0;              // 0 for a zero
    std::int64_t 首位 = 0;
};

static 文本数形 文本形状(QStringView t) {
    文本数形 f;
    std::int64_t 整数位 = 0, 序 = 0, 首 = -1, 末 = -1;
    bool 见点 = false;
    qsizetype i = 0;
    const qsizetype n = t.size();
    if (i < n && (t[i] == u'+' || t[i] == u'-')) ++i;
    for (; i < n; ++i) {
        const char16_t c = t[i].unicode();
        if (c >= u'0' && c <= u'9') {
            if (c != u'0') {
                if (首 < 0) 首 = 序;
                末 = 序;
            }
            if (!见点) ++整数位;
            ++序;
        } else if (c == u'.') {
            见点 = true;
        } else {
            break;
        }
    }
    if (首 < 0) return f;
    std::int64_t 指数 = 0;
    if (i < n) {  // E or e, as the parser has checked
        ++i;
        bool 负 = false;
        if (i < n && (t[i] == u'+' || t[i] == u'-')) 负 = t[i++] == u'-';
        for (; i < n; ++i)
            if (指数 < 1000000000) 指数 = 指数 * 10 + (t[i].unicode() - u'0');
        if (负) 指数 = -指数;
    }
    f.有效 = static_cast<int>(末 - 首 + 1);
    f.首位 = 整数位 - 首 + 指数;
    return f;
}

// Decimal digits of m > 0 (m < 2^96): the bit length gives the count or
// one more, the table of powers decides.
static int 十进位数(unsigned __int128 m) {
    static const auto 幂 = [] {
        std::array<unsigned __int128, 30> p{};
        p[0] = 1;
        for (std::size_t k = 1; k < p.size(); ++k) p[k] = p[k - 1] * 10;
        return p;
    }();
    const std::uint64_t hi = static_cast<std::uint64_t>(m >> 64);
    const int 位长 = hi ? 128 - __builtin_clzll(hi) : 64 - __builtin_clzll(static_cast<std::uint64_t>(m));
    const int t = (位长 * 1233) >> 12;  // 1233 / 4096 is just above log10(2)
    return t - (m < 幂[static_cast<std::size_t>(t)]) + 1;
}

// The same shape for a decimal.
static 文本数形 十进制形状(const Decimal96& r) {
    文本数形 f;
    unsigned __int128 m = (static_cast<unsigned __int128>(r.hi()) << 64) | r.lo64();
    if (m == 0) return f;
    const int 位数 = 十进位数(m);
    int 尾零 = 0;
    // m mod 10 from the two halves: 2^64 leaves 6.
    while ((static_cast<std::uint64_t>(m >> 64) % 10 * 6 + static_cast<std::uint64_t>(m) % 10) % 10 == 0) {
        m /= 10;
        ++尾零;
    }
    f.有效 = 位数 - 尾零;
    f.首位 = 位数 - r.scale();
    return f;
}

// The plain texts a calculation writes and reads back ("-12.5", "0.0034",
// up to 29 digits, no exponent), read straight into the decimal that
// Decimal96::fromText would give: every digit from the first nonzero one
// kept, typed trailing zeros included, the scale the count of digits behind
// the point, a zero at scale 0 with its sign. False for any other text
// (an exponent, a digit beyond the 29th or behind the 28th place, a
// mantissa of 2^96 or more, or not a number at all): the caller reads it
// the long way.
static bool 快读十进制(QStringView t, Decimal96& out) {
    const char16_t* c = reinterpret_cast<const char16_t*>(t.data());
    const char16_t* const e = c + t.size();
    bool 负 = false;
    if (c < e && (*c == u'+' || *c == u'-')) 负 = *c++ == u'-';
    unsigned __int128 m = 0;
    int 有效 = 0, 小数 = 0;
    bool 点 = false, 数字 = false;
    for (; c < e; ++c) {
        const char16_t u = *c;
        if (u >= u'0' && u <= u'9') {
            数字 = true;
            if (点) ++小数;
            if (有效 > 0 || u != u'0') {
                if (++有效 > 29) return false;
                m = m * 10 + (u - u'0');
            }
        } else if (u == u'.' && !点) {
            点 = true;
        } else {
            return false;
        }
    }
    if (!数字) return false;
    if (m == 0) {
        out = Decimal96::fromParts64(0, 0, 负, 0);
        return true;
    }
    if (小数 > Decimal96::kMaxScale || (m >> 96) != 0) return false;
    out = Decimal96::fromParts64(static_cast<std::uint64_t>(m), static_cast<std::uint32_t>(m >> 64), 负, 小数);
    return true;
}

转换结果 数转数核心(const 数值& x, 数值& out) {
    if (x.是文本()) {
        QStringView t(x.文本值());
        while (!t.isEmpty() && t.front() == u' ') t = t.mid(1);
        while (!t.isEmpty() && t.back() == u' ') t.chop(1);
        if (t.isEmpty()) {
            out = 数值(Decimal96());
            return 转换结果::十进制;
        }
        // The usual case is a text that the decimal holds exactly, which
        // passes the rule unchanged: a plain text is read straight; for the
        // rest Decimal96::fromText held every digit when the decimal shows
        // as many digits, from the first nonzero one to the last, starting
        // at the same place. A text that the decimal rounds takes the full
        // rule.
        Decimal96 r;
        if (计算状态.高精度开关 && 快读十进制(t, r) && 十进制无需双精度(r)) {
            out = 数值(r);  // held exactly
            return 转换结果::十进制;
        }
        if (计算状态.高精度开关 && Decimal96::fromText(t, r) == Decimal96::Status::Ok && 十进制无需双精度(r)) {
            const 文本数形 a = 文本形状(t), b = 十进制形状(r);
            if (a.有效 == b.有效 && (a.有效 == 0 || a.首位 == b.首位)) {
                out = 数值(r);
                return 转换结果::十进制;
            }
        }
        return 一般转换(数值(t.toString()), out);
    }
    if (x.是空()) {
        out = 数值(Decimal96());
        return 转换结果::十进制;
    }
    if (x.是十进制() && 计算状态.高精度开关 && 十进制无需双精度(x.十进制值())) {
        out = x;
        return 转换结果::十进制;
    }
    return 一般转换(x, out);
}

}  // namespace guarded_detail

using namespace guarded_detail;

数值 Hvt数转数(const 数值& x) {
    数值 r;
    switch (数转数核心(x, r)) {
    case 转换结果::十进制:
        return r;
    case 转换结果::落双精度:
        记录精度损失();
        return r;
    case 转换结果::失败:
        break;
    }
    报告错误(QStringLiteral("  进行[Hvt数转数]运算时， ") + 修剪文本(x) +
             QStringLiteral(" 数值超出计算范围！返回数值用[1]表示。"));
    return 数值(QStringLiteral("1"));
}

// The inspectors read the value's text; only a value that has no number
// text at all (an infinite or NaN double, which no guarded step produces)
// makes them fail.
static bool 有数字文本(const 数值& x) {
    return !(x.是双精度() && !std::isfinite(x.双精度值()));
}

int 判断数的有效字符长度(const 数值& x) {
    if (!有数字文本(x)) {
        报告错误(QStringLiteral("进行[判断数的有效字符长度]运算时， ") + 修剪文本(x) +
                 QStringLiteral(" 出现错误！"));
        return -1;
    }
    return 有效位数(修剪文本(x));
}

int 判断数的有效019字符长度(const 数值& x) {
    if (!有数字文本(x)) {
        报告错误(QStringLiteral("进行[判断数的有效019字符长度]运算时， ") + 修剪文本(x) +
                 QStringLiteral(" 出现错误！"));
        return -1;
    }
    int n = 0;
    for (const QChar c : 修剪文本(x)) {
        const char16_t u = c.unicode();
        if (u >= u'0' && u <= u'9') ++n;
        else if (u == u' ' || u == u'.' || u == u'+' || u == u'-') continue;
        else break;
    }
    return n;
}

QString Hvt有效长度(const 数值& x, int 位数) {
    const QString s = 修剪文本(x);
    if (!有数字文本(x)) {
        报告错误(QStringLiteral("进行[Hvt有效长度]运算时，") + s +
                 QStringLiteral("数值超出计算范围！返回数值 -1。"));
        return QStringLiteral("-1");
    }
    const int e = std::max(txt::instrRev(s, QChar(u'E')), txt::instrRev(s, QChar(u'e')));
    const QString 尾数 = e > 0 ? txt::left(s, e - 1) : s;
    const QString 指数 = e > 0 ? txt::mid(s, e) : QString();
    int 计数 = 0;
    bool 见点 = false;
    for (int i = 1; i <= txt::len(尾数); ++i) {
        const char16_t u = txt::at(尾数, i).unicode();
        if (u == u'.') {
            见点 = true;
            continue;
        }
        if (u >= u'1' && u <= u'9') ++计数;
        else if (u == u'0' && 计数 > 0) ++计数;
        else continue;
        // Only behind the point: an integer part is never cut.
        if (计数 >= 位数 && 见点) return txt::left(尾数, i) + 指数;
    }
    return 尾数 + 指数;
}

static int 数到E为止(const 数值& x, char16_t what, const char16_t* 头) {
    if (!有数字文本(x)) {
        报告错误(QString::fromUtf16(头) + 修剪文本(x) + QStringLiteral(" 出现错误！"));
        return -1;
    }
    int n = 0;
    for (const QChar c : 修剪文本(x)) {
        if (c == u'E' || c == u'e') break;
        if (c == what) ++n;
    }
    return n;
}

int Hvt减号数(const 数值& x) { return 数到E为止(x, u'-', u"进行[Hvt减号数]运算时， "); }
int Hvt点号数(const 数值& x) { return 数到E为止(x, u'.', u"进行[Hvt点号数]运算时， "); }

int HvtE位置(const 数值& x) {
    if (!有数字文本(x)) {
        报告错误(QStringLiteral("进行[HvtE位置]运算时，") + 修剪文本(x) +
                 QStringLiteral(" 数值超出范围！返回数值用 -1 表示。"));
        return -1;
    }
    return E位置(修剪文本(x));
}

namespace {

// HvtE位置(v) >= 1 without building a decimal's text: a decimal's text
// never has an exponent.
bool 有E(const 数值& v) {
    return !v.是十进制() && HvtE位置(v) >= 1;
}

// The three tiers shared by product, quotient, sum and difference.
数值 守护运算(const 数值& x, const 数值& y, 运算符 op, bool 查下溢, const char16_t* 头,
             const char16_t* 符) {
    bool 十进制可行 = true;
    数值 a, b, p;
    // Tier 1: the operands as Hvt数转数 reads them. The order matters for
    // the counters: once a is beyond the decimal, y is not converted at all.
    a = Hvt数转数(x);
    if (有E(a)) 十进制可行 = false;
    if (十进制可行) {
        b = Hvt数转数(y);
        if (有E(b)) 十进制可行 = false;
    }
    if (十进制可行 && !数值运算(a, op, b, p)) 十进制可行 = false;
    if (十进制可行 && 查下溢 && !是零(a) && !是零(b) && 是零(p)) 十进制可行 = false;
    if (十进制可行 && 有E(p)) 十进制可行 = false;
    if (十进制可行) {
        // The result itself comes from x and y as decimals, so that a text
        // operand keeps every digit it has. When both readings already are
        // decimals they are exactly those decimals, and p is that result.
        if (a.是十进制() && b.是十进制()) return p;
        Decimal96 dx, dy;
        数值 r;
        if (作十进制(x, dx) && 作十进制(y, dy) && 数值运算(数值(dx), op, 数值(dy), r)) return r;
    }
    // Tier 2: double.
    double fx = 0.0, fy = 0.0;
    数值 r;
    if (作双精度(x, fx) && 作双精度(y, fy) && 数值运算(数值(fx), op, 数值(fy), r)) {
        记录精度损失();
        return r;
    }
    // Tier 3: the marker and the message.
    报告错误(QString::fromUtf16(头) + 修剪文本(x) + QString::fromUtf16(符) + 修剪文本(y) +
             QStringLiteral(" 数值超出计算范围！返回数值用 [1] 表示。"));
    return 数值(QStringLiteral("1"));
}

}  // namespace

数值 求两数积(const 数值& x, const 数值& y) {
    return 守护运算(x, y, 运算符::乘, true, u"  进行[求两数积]运算时， ", u"*");
}
数值 求两数商(const 数值& x, const 数值& y) {
    return 守护运算(x, y, 运算符::除, true, u"  进行[求两数商]运算时， ", u"/");
}
数值 求两数和(const 数值& x, const 数值& y) {
    return 守护运算(x, y, 运算符::加, false, u"  进行[求两数和]运算时， ", u"+");
}
数值 求两数差(const 数值& x, const 数值& y) {
    return 守护运算(x, y, 运算符::减, false, u"  进行[求两数差]运算时， ", u"-");
}

数值 求两数余(const 数值& x, const 数值& y) {
    const int 错前 = 计算状态.错误数;
    const 数值 a = Hvt数转数(x);
    const 数值 b = Hvt数转数(y);
    const 数值 q = 求两数商(a, b);
    const QString i = 取数值的整数部分(q);
    const 数值 r = 求两数差(a, 求两数积(数值(i), b));
    if (计算状态.错误数 == 错前) return r;
    报告错误(QStringLiteral("  进行[求两数余]运算时， ") + 修剪文本(x) + QStringLiteral("余") +
             修剪文本(y) + QStringLiteral(" 数值超出计算范围！返回数值用 [1] 表示。"));
    return 数值(QStringLiteral("1"));
}

double Double和(double a, double b) {
    Decimal96 da, db, s;
    if (Decimal96::fromDouble(a, da) == Decimal96::Status::Ok &&
        Decimal96::fromDouble(b, db) == Decimal96::Status::Ok &&
        Decimal96::add(da, db, s) == Decimal96::Status::Ok) {
        const double r = s.toDouble();
        if (std::isfinite(r)) return r;
    }
    const double r = a + b;
    if (std::isfinite(r)) return r;
    报告错误(QStringLiteral("进行[Double和]运算时，[") + txt::trim(双精度文本(a)) + QStringLiteral(" + ") +
             txt::trim(双精度文本(b)) + QStringLiteral("]出现错误！"));
    return 1.0;
}
