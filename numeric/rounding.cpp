#include "numeric/rounding.h"

#include "numeric/guarded.h"
#include "numeric/guarded_detail.h"
#include "numeric/text.h"
#include "numeric/state.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

using namespace guarded_detail;

namespace {

// A double rounded to `places` decimals, ties to even on its exact binary
// value (the C library prints the exact expansion and rounds it in the
// current mode, round-to-nearest-even). A double of 1E+17 or more has no
// fraction left to round.
double 双精度舍入(double v, int places) {
    if (!std::isfinite(v) || std::fabs(v) >= 1E+17) return v;
    char buf[96];
    std::snprintf(buf, sizeof buf, "%.*f", places, v);
    const double r = std::strtod(buf, nullptr);
    return r == 0.0 ? 0.0 : r;   // no negative zero in results
}

bool 数字字符(QChar c) {
    return c.unicode() >= u'0' && c.unicode() <= u'9';
}

// I + 1 away from zero, by the sign of the rounded number (I may be "-0").
bool 离零进一(const QString& I, int 符, Decimal96& out) {
    Decimal96 i;
    if (Decimal96::fromText(I, i) != Decimal96::Status::Ok) return false;
    if (符 == 0) {
        out = i;
        return true;
    }
    const Decimal96 one = Decimal96::fromInt64(1);
    return (符 > 0 ? Decimal96::add(i, one, out) : Decimal96::sub(i, one, out)) == Decimal96::Status::Ok;
}

// The digit rule below for a decimal, without its texts. The fraction
// digits F are those of the normalised value (a decimal's text drops
// trailing zeros); the answer keeps the representation that reading
// I + "." + G back would give: scale d, or 0 after a roll-over into the
// integer part, and scale 0 for a zero (keeping a minus sign).
Decimal96 十进制四舍五入(const Decimal96& a, int d) {
    const Decimal96 n = a.normalized();
    if (n.scale() == 0) return a;              // no fraction digits: a itself
    if (n.scale() <= d) return n;              // F as it stands
    Decimal96 r = n.rounded(d, Decimal96::Rounding::HalfAwayFromZero);
    if (r.isZero()) return Decimal96::fromParts64(0, 0, r.negative(), 0);
    if (d > 0) {
        const Decimal96 截 = n.rounded(d, Decimal96::Rounding::TowardZero);
        const bool 进位 = r.lo64() != 截.lo64() || r.hi() != 截.hi();
        if (进位 && r.normalized().scale() == 0) r = r.normalized();  // 0.999 → 1
    }
    return r;
}

// The integer and fraction texts of a converted value; see the two public
// procedures below for the rules.
QString 整数部分文本(const 数值& a) {
    const QString s = 修剪文本(a);
    if (E位置(s) >= 1) {
        double d = 0.0;
        作双精度(a, d);
        if (d > 10000 || d < -10000) return s;
        return d > 0 ? QStringLiteral("0") : QStringLiteral("-0");
    }
    const int p = txt::instr(s, QChar(u'.'));
    const QString r = p > 0 ? txt::left(s, p - 1) : s;
    if (r.isEmpty()) return QStringLiteral("0");
    if (r == u"-") return QStringLiteral("-0");
    return r;
}

QString 小数部分文本(const 数值& a) {
    const QString s = 修剪文本(a);
    if (E位置(s) >= 1) {
        double d = 0.0;
        作双精度(a, d);
        if (d > 10000 || d < -10000) return QStringLiteral("0");
        return s;
    }
    const int p = txt::instr(s, QChar(u'.'));
    if (p == 0) return QStringLiteral("0");
    const QString r = txt::mid(s, p + 1);
    return r.isEmpty() ? QStringLiteral("0") : r;
}

}  // namespace

数值 四舍五入(const 数值& x, int 小数位数) {
    const auto 失败 = [&x]() {
        报告错误(QStringLiteral("进行[四舍五入]运算时，") + 修剪文本(x) +
                 QStringLiteral("数值超出计算范围！返回 [0值] 。"));
        return 数值(Decimal96());
    };
    const 数值 a = Hvt数转数(x);
    if (a.是文本()) return 失败();   // Hvt数转数 gives text only as its failure marker
    int d = std::clamp(小数位数, 0, 28);

    if (!计算状态.高精度开关) {
        d = std::min(d, 15);
        double v = 0.0;
        if (!作双精度(a, v)) return 失败();
        const double r = 双精度舍入(v, d);
        记录精度损失();
        return 数值(r);
    }
    if (a.是十进制()) return 数值(十进制四舍五入(a.十进制值(), d));  // never an E in its text
    if (E位置(修剪文本(a)) >= 1) {
        // Beyond the plain form: ties to even, in the value's own kind.
        d = std::min(d, 15);
        if (a.是十进制()) return 数值(a.十进制值().rounded(d, Decimal96::Rounding::HalfEven));
        double v = 0.0;
        if (!作双精度(a, v)) return 失败();
        return 数值(双精度舍入(v, d));
    }

    const QString I = 整数部分文本(a);
    const QString F = 小数部分文本(a);
    const int L = txt::len(F);
    Decimal96 r;
    if (F == u"0") {
        if (!作十进制(a, r)) return 失败();
        return 数值(r);
    }
    const int 符 = 符号(a);
    if (d == 0) {
        // Half away from zero on the first digit behind the point.
        if (F[0].unicode() >= u'5') {
            if (!离零进一(I, 符, r)) return 失败();
        } else if (Decimal96::fromText(I, r) != Decimal96::Status::Ok) {
            return 失败();
        }
        return 数值(r);
    }
    QString G;
    if (L <= d) {
        G = F;
    } else {
        const QChar c = F[d];
        const int k = (数字字符(c) && c.unicode() >= u'5') ? 1 : 0;
        Decimal96 head, sum;
        if (Decimal96::fromText(txt::left(F, d), head) != Decimal96::Status::Ok ||
            Decimal96::add(head, Decimal96::fromInt64(k), sum) != Decimal96::Status::Ok)
            return 失败();
        // The decimal has dropped the fraction's leading zeros: put them back.
        G = txt::trim(sum.toText());
        while (txt::len(G) < d) G.prepend(u'0');
    }
    if (txt::len(G) > d) {
        // The fraction rolled over (0.999 → 1).
        if (!离零进一(I, 符, r)) return 失败();
        return 数值(r);
    }
    if (Decimal96::fromText(I + u'.' + G, r) != Decimal96::Status::Ok) return 失败();
    return 数值(r);
}

QString 取数值的整数部分(const 数值& x) {
    const 数值 a = Hvt数转数(x);
    if (a.是文本()) {
        报告错误(QStringLiteral("进行[取数值的整数部分]运算时，") + 修剪文本(x) +
                 QStringLiteral("数值超出计算范围！返回数值 0 。"));
        return QStringLiteral("0");
    }
    return 整数部分文本(a);
}

QString 取数值的小数部分(const 数值& x) {
    const 数值 a = Hvt数转数(x);
    if (a.是文本()) {
        报告错误(QStringLiteral("进行[取数值的小数部分]运算时，") + 修剪文本(x) +
                 QStringLiteral("数值超出计算范围！返回数值 0 。"));
        return QStringLiteral("0");
    }
    return 小数部分文本(a);
}

QString 科学计数形式(const 数值& x) {
    数值 a;
    if (数转数核心(x, a) == 转换结果::失败) {
        报告错误(QStringLiteral("进行[科学计数形式]运算时，") + 修剪文本(x) +
                 QStringLiteral("数值超出计算范围！返回数值 0E+0 。"));
        return QStringLiteral("0E+0");
    }
    if (是零(a)) return QStringLiteral("0E+0");
    // A decimal keeps every digit it has; a double reads with its 15.
    const QString s = 修剪文本(a);
    if (E位置(s) >= 1) return s;

    const int n字 = txt::len(s);
    int p = txt::instr(s, QChar(u'.'));
    if (p == 0) p = n字 + 1;
    int q = 0;
    for (int i = 1; i <= n字; ++i) {
        const char16_t u = txt::at(s, i).unicode();
        if (u >= u'1' && u <= u'9') {
            q = i;
            break;
        }
    }
    if (q == 0) return QStringLiteral("0E+0");
    QString m;
    if (s.startsWith(u'-')) m += u'-';
    for (int i = q; i <= n字; ++i) {
        const QChar c = txt::at(s, i);
        if (!数字字符(c)) continue;
        m += c;
        if (i == q) m += u'.';
    }
    if (m.endsWith(u'.')) m.chop(1);
    int n = p - q;
    if (p > q) n -= 1;
    return m + u'E' + (n > 0 ? QStringLiteral("+") + QString::number(n) : QString::number(n));
}

QString 去负号(const 数值& x) {
    const QString s = 修剪文本(x);
    return s.startsWith(u'-') ? s.mid(1) : s;
}

namespace {

// Code points that take two columns in a fixed-pitch Chinese text box: the
// East Asian wide and full-width blocks, and the symbols that the Chinese
// code page holds as double-byte characters (degree, minute and second
// signs, ×, ÷, Greek, Cyrillic, box drawing, circled numbers ...).
struct 区间 { char32_t 起, 止; };
constexpr std::array<区间, 40> k双宽区间{{
    {0x00A4, 0x00A4}, {0x00A7, 0x00A8}, {0x00B0, 0x00B1}, {0x00B7, 0x00B7},
    {0x00D7, 0x00D7}, {0x00E0, 0x00E1}, {0x00E8, 0x00EA}, {0x00EC, 0x00ED},
    {0x00F2, 0x00F3}, {0x00F7, 0x00F7}, {0x00F9, 0x00FA}, {0x00FC, 0x00FC},
    {0x0391, 0x03C9}, {0x0401, 0x0451}, {0x1100, 0x115F}, {0x2010, 0x2016},
    {0x2018, 0x201D}, {0x2025, 0x2026}, {0x2030, 0x2033}, {0x203B, 0x203B},
    {0x2103, 0x2103}, {0x2116, 0x2116}, {0x2160, 0x216B}, {0x2190, 0x2199},
    {0x2200, 0x22FF}, {0x2312, 0x2312}, {0x2460, 0x24FF}, {0x2500, 0x257F},
    {0x25A0, 0x25FF}, {0x2605, 0x2606}, {0x2640, 0x2642}, {0x2E80, 0x303E},
    {0x3041, 0x33FF}, {0x3400, 0x4DBF}, {0x4E00, 0x9FFF}, {0xA000, 0xA4CF},
    {0xAC00, 0xD7A3}, {0xF900, 0xFAFF}, {0xFE30, 0xFE6F}, {0xFF01, 0xFF60},
}};
static_assert(k双宽区间.size() == 40);
constexpr std::array<区间, 3> k双宽补充区间{{
    {0xFFE0, 0xFFE6}, {0x1F300, 0x1F64F}, {0x20000, 0x3FFFD},
}};
static_assert(k双宽补充区间.size() == 3);

bool 双宽(char32_t c) {
    for (const auto& r : k双宽区间)
        if (c >= r.起 && c <= r.止) return true;
    for (const auto& r : k双宽补充区间)
        if (c >= r.起 && c <= r.止) return true;
    return false;
}

}  // namespace

int 显示宽度(const QString& t) {
    int w = 0;
    for (qsizetype i = 0; i < t.size(); ++i) {
        char32_t c = t[i].unicode();
        if (c < k双宽区间[0].起) {  // below the first wide block: digits, signs, blanks ...
            ++w;
            continue;
        }
        if (QChar::isHighSurrogate(c) && i + 1 < t.size() && t[i + 1].isLowSurrogate()) {
            c = QChar::surrogateToUcs4(t[i], t[i + 1]);
            ++i;
        }
        w += 双宽(c) ? 2 : 1;
    }
    return w;
}

namespace {

struct 格式描述 {
    QString 前缀, 后缀;
    int 整数零位 = 0;     // "0" placeholders ahead of the point
    int 小数位 = 0;       // "0" and "#" placeholders behind the point
    int 小数最少 = 0;     // places up to the last "0" behind the point
    bool 分组 = false;    // "," among the integer placeholders
};

格式描述 解析格式(const QString& f) {
    格式描述 g;
    qsizetype b = -1, e = -1;
    for (qsizetype i = 0; i < f.size(); ++i) {
        const QChar c = f[i];
        if (c == u'0' || c == u'#' || c == u'.') {
            if (b < 0) b = i;
            e = i;
        }
    }
    if (b < 0) {
        g.前缀 = f;
        return g;
    }
    g.前缀 = f.left(b);
    g.后缀 = f.mid(e + 1);
    bool 小数 = false;
    for (qsizetype i = b; i <= e; ++i) {
        const QChar c = f[i];
        if (c == u'.') {
            if (小数) continue;   // a second point is not a point
            小数 = true;
        } else if (c == u',') {
            if (!小数) g.分组 = true;
        } else if (c == u'0' || c == u'#') {
            if (小数) {
                ++g.小数位;
                if (c == u'0') g.小数最少 = g.小数位;
            } else if (c == u'0') {
                ++g.整数零位;
            }
        }
    }
    g.小数位 = std::min(g.小数位, 28);
    g.小数最少 = std::min(g.小数最少, g.小数位);
    return g;
}

QString 拼装(const 格式描述& g, bool 负, QString 整数, QString 小数) {
    if (整数 == u"0" && g.整数零位 == 0) 整数.clear();
    while (整数.size() < g.整数零位) 整数.prepend(u'0');
    if (g.分组)
        for (qsizetype i = 整数.size() - 3; i > 0; i -= 3) 整数.insert(i, u',');
    while (小数.size() < g.小数位) 小数.append(u'0');
    小数.truncate(g.小数位);
    while (小数.size() > g.小数最少 && 小数.endsWith(u'0')) 小数.chop(1);
    bool 全零 = true;
    for (const QChar c : 整数 + 小数)
        if (c.unicode() >= u'1' && c.unicode() <= u'9') 全零 = false;
    QString 数 = 整数;
    if (!小数.isEmpty()) 数 += u'.' + 小数;
    if (数.isEmpty()) 数 = QStringLiteral("0");
    return g.前缀 + (负 && !全零 ? QStringLiteral("-") : QString()) + 数 + g.后缀;
}

QString 按十进制格式化(const Decimal96& v, const QString& 格式) {
    const 格式描述 g = 解析格式(格式);
    const Decimal96 r = v.rounded(g.小数位, Decimal96::Rounding::HalfAwayFromZero);
    QString s = r.toText();
    const bool 负 = s.startsWith(u'-');
    if (负) s.remove(0, 1);
    const qsizetype p = s.indexOf(u'.');
    return 拼装(g, 负, p < 0 ? s : s.left(p), p < 0 ? QString() : s.mid(p + 1));
}

// Beyond the decimal's range a double has no fraction worth showing, and
// only its 15 significant digits mean anything: the rest are shown as zeros
// rather than as binary noise.
QString 按双精度格式化(double v, const QString& 格式) {
    const 格式描述 g = 解析格式(格式);
    if (!std::isfinite(v)) v = 0.0;
    const QString t = 双精度文本(std::fabs(v));
    const int e = E位置(t);
    QString 整数;
    if (e == 0) {
        const int p = txt::instr(t, QChar(u'.'));
        整数 = p > 0 ? txt::left(t, p - 1) : t;
    } else {
        QString 数字 = txt::left(t, e - 1);
        数字.remove(u'.');
        const int 指数 = txt::mid(t, e + 1).toInt();
        if (指数 < 0) {
            整数 = QStringLiteral("0");
        } else {
            整数 = 数字.left(指数 + 1);
            while (整数.size() < 指数 + 1) 整数.append(u'0');
        }
    }
    return 拼装(g, v < 0, 整数, QString());
}

}  // namespace

QString 格式化数值(const 数值& x, const QString& 格式) {
    Decimal96 d;
    if (作十进制(x, d)) return 按十进制格式化(d, 格式);
    double v = 0.0;
    if (作双精度(x, v)) return 按双精度格式化(v, 格式);
    return 按十进制格式化(Decimal96(), 格式);
}

QString 格式化数值(double x, const QString& 格式) {
    return 格式化数值(数值(x), 格式);
}
