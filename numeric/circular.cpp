#include "numeric/circular.h"

#include "numeric/guarded.h"
#include "numeric/rounding.h"
#include "numeric/text.h"
#include "numeric/interaction.h"
#include "numeric/state.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace {

using 状态 = Decimal96::Status;

constexpr Decimal96 k零;
constexpr Decimal96 k一 = Decimal96::fromParts(1, 0, 0, false, 0);
constexpr Decimal96 k六十 = Decimal96::fromParts(60, 0, 0, false, 0);

Decimal96 解析常数(const char16_t* s) {
    Decimal96 d;
    Decimal96::fromText(QStringView(s), d);
    return d;
}

QString 修剪文本(const 数值& v) { return txt::trim(v.文本()); }

// HvtE位置(v) >= 1 without building a decimal's text: a decimal's text
// never has an exponent.
bool 有E(const 数值& v) { return !v.是十进制() && HvtE位置(v) >= 1; }

// ---- Decimal circular functions --------------------------------------------

const QString k函数尾 = QStringLiteral(" 数值超出计算范围，我无法计算！返回数值用 [空值] 表示。");

数值 函数失败(const char16_t* 头, const 数值& x) {
    报告错误(QString::fromUtf16(头) + 修剪文本(x) + k函数尾);
    return 数值();
}

// x mod 2π through the guards, as a decimal (a fallen double is brought back
// by the 15-digit rule; it has lost its digits by then anyway).
bool 周内角(const 数值& x, Decimal96& m) {
    const 数值 a = Hvt数转数(x);
    // Within one turn the guarded remainder comes out as a - 0·2π: the
    // quotient is a decimal in (0, 1) (a ≥ 1E-20 keeps it clear of the
    // underflow test), its integer part "0", and every reading of a decimal
    // this size gives the decimal itself, untouched counters included. The
    // same two decimal steps are taken here directly; 0·2π is the guarded
    // product itself, formed once.
    static constexpr Decimal96 k直取下限 = Decimal96::fromParts(1, 0, 0, false, 20);  // 1E-20
    // A negative angle within one turn goes the same way with the integer
    // part "-0".
    if (计算状态.高精度开关 && a.是十进制()) {
        const Decimal96& v = a.十进制值();
        const Decimal96 模 = v.abs();
        if (!(模 < k直取下限) && 模 < 二π()) {
            static const auto 零积 = [](const QString& 整数部分) {
                Decimal96 z;
                转十进制(求两数积(数值(整数部分), 数值(二π())), z);
                return z;
            };
            static const Decimal96 正零积 = 零积(QStringLiteral("0"));
            static const Decimal96 负零积 = 零积(QStringLiteral("-0"));
            if (Decimal96::sub(v, v.negative() ? 负零积 : 正零积, m) == 状态::Ok) return true;
        }
    }
    return 转十进制(求两数余(a, 数值(二π())), m);
}

// The sine of m, 0 <= m < 2π after the caller's reduction; the series over
// decimals. False on any decimal fault.
bool 正弦级数(Decimal96 m, 数值& out) {
    if (m == k零 || m == π值() || m == 二π()) { out = 数值(k零); return true; }
    if (m == π除二()) { out = 数值(k一); return true; }
    if (m == 三π除二()) { out = 数值(k一.negated()); return true; }

    bool 负 = false;
    if (π除二() < m && m < π值()) {
        if (Decimal96::sub(π值(), m, m) != 状态::Ok) return false;
    }
    if (π值() < m && m < 三π除二()) {
        if (Decimal96::sub(m, π值(), m) != 状态::Ok) return false;
        负 = true;
    }
    if (三π除二() < m && m < 二π()) {
        if (Decimal96::sub(二π(), m, m) != 状态::Ok) return false;
        负 = true;
    }

    // S = m - m³/3! + m⁵/5! ...; the factorial is kept in two factors, since
    // 27! still fits the decimal and 29! does not.
    static constexpr Decimal96 k界 = Decimal96::fromParts(1, 0, 0, false, 28);  // 1E-28
    Decimal96 S = m, N = m, Q, D1 = k一, D2 = k一;
    if (Decimal96::mul(m, m, Q) != 状态::Ok) return false;
    for (int i = 2; i < 101; i += 2) {
        const Decimal96 因子 = Decimal96::fromInt64(static_cast<std::int64_t>(i + 1) * i);
        if (i < 28) {
            if (Decimal96::mul(因子, D1, D1) != 状态::Ok) return false;
        } else {
            if (Decimal96::mul(因子, D2, D2) != 状态::Ok) return false;
        }
        if (Decimal96::mul(Q, N.negated(), N) != 状态::Ok) return false;
        Decimal96 T;
        if (Decimal96::div(N, D1, T) != 状态::Ok || Decimal96::div(T, D2, T) != 状态::Ok) return false;
        if (Decimal96::add(S, T, S) != 状态::Ok) return false;
        if (!(k界 < T.abs())) break;
    }
    if (k一 < S) S = k一;
    if (S < k零) S = k零;
    out = 数值(负 ? S.negated() : S);
    if (计算状态.可达有效位数 > 27) 计算状态.可达有效位数 = 27;
    return true;
}

// ---- Digits of a double (the 15-digit rule), for the double family ---------

// A decimal as sign, integer digits and fraction digits (no trailing zeros).
struct 数字串 {
    bool 负 = false;
    char 整[32];
    int 整长 = 0;
    char 小[32];
    int 小长 = 0;
};

void 分解(const Decimal96& d, 数字串& o) {
    using u128 = unsigned __int128;
    u128 m = (static_cast<u128>(d.hi()) << 64) | (static_cast<u128>(d.mid()) << 32) | d.lo();
    char 反[32];
    int n = 0;
    do {
        反[n++] = static_cast<char>('0' + static_cast<int>(m % 10));
        m /= 10;
    } while (m != 0);
    const int s = d.scale();
    while (n < s + 1) 反[n++] = '0';
    o.整长 = 0;
    for (int i = n - 1; i >= s; --i) o.整[o.整长++] = 反[i];
    o.小长 = 0;
    for (int i = s - 1; i >= 0; --i) o.小[o.小长++] = 反[i];
    while (o.小长 > 0 && o.小[o.小长 - 1] == '0') --o.小长;
    o.负 = d.negative() && !d.isZero();
}

// The double as the decimal Hvt数转数 makes of it; false when it would not be
// a decimal (NaN, infinite, beyond the decimal range, nonzero below 1E-28).
bool 双精度十进制(double x, Decimal96& d) {
    if (!std::isfinite(x)) return false;
    if (x != 0.0 && std::fabs(x) < 1E-28) return false;
    return Decimal96::fromDouble(x, d) == 状态::Ok;
}

// A decimal from up to 28 ASCII digits and a scale.
Decimal96 数字十进制(const char* p, int n, int 小数位, bool 负) {
    unsigned __int128 m = 0;
    for (int i = 0; i < n; ++i) m = m * 10 + static_cast<unsigned>(p[i] - '0');
    return Decimal96::fromParts(static_cast<std::uint32_t>(m), static_cast<std::uint32_t>(m >> 32),
                                static_cast<std::uint32_t>(m >> 64), 负, 小数位);
}

int 两位数(const char* p) { return (p[0] - '0') * 10 + (p[1] - '0'); }

void 写两位(char* p, int v) {
    p[0] = static_cast<char>('0' + v / 10);
    p[1] = static_cast<char>('0' + v % 10);
}

double 读双精度(const char* b, const char* e) {
    double r = 0.0;
    std::from_chars(b, e, r);
    return r;
}

// Integer digits + 1, in place (a carry may lengthen them by one digit).
void 整数加一(数字串& o) {
    int i = o.整长 - 1;
    while (i >= 0 && o.整[i] == '9') o.整[i--] = '0';
    if (i >= 0) {
        o.整[i] += 1;
    } else {
        std::memmove(o.整 + 1, o.整, static_cast<size_t>(o.整长));
        o.整[0] = '1';
        ++o.整长;
    }
}

// deg ± (mm + ss/60)/60 from the fraction digits, the steps of 度转梯度.
// 秒超 / 分超 tell whether a clamp to 60 happened (the decimal family shows
// a message then). False on a decimal fault.
bool 度分秒合成(const Decimal96& 度, const QChar* 分秒, int 长, bool 取负, Decimal96& out,
                bool& 秒超, bool& 分超) {
    // 分秒 holds the text from the point on: ".MMSSsss", at least 6 units.
    char 位[40];
    int n = 0;
    for (int i = 1; i < 长 && n < 39; ++i) 位[n++] = static_cast<char>(分秒[i].unicode());
    for (int i = 0; i < n; ++i)
        if (位[i] < '0' || 位[i] > '9') return false;
    // n >= 5: mm = 位[0..1], ss = 位[2..] with a point behind its first two.
    Decimal96 mm = 数字十进制(位, 2, 0, false);
    // A decimal has at most 28 fraction digits, so ss has at most 26.
    const int 秒位数 = n - 2;
    if (秒位数 > 28) return false;
    const int 秒小数 = 秒位数 > 2 ? 秒位数 - 2 : 0;
    Decimal96 ss = 数字十进制(位 + 2, 秒位数, 秒小数, false);
    秒超 = 分超 = false;
    if (k六十 < ss) { 秒超 = true; ss = k六十; }
    Decimal96 M;
    if (Decimal96::div(ss, k六十, M) != 状态::Ok || Decimal96::add(mm, M, M) != 状态::Ok) return false;
    if (k六十 < M) { 分超 = true; M = k六十; }
    Decimal96 g;
    if (Decimal96::div(M, k六十, g) != 状态::Ok) return false;
    return (取负 ? Decimal96::sub(度, g, out) : Decimal96::add(度, g, out)) == 状态::Ok;
}

// The same over the digits of a double.
bool 度分秒合成双精度(const 数字串& o, bool 取负, Decimal96& out) {
    QChar f[40];
    int 长 = 0;
    f[长++] = QChar(u'.');
    for (int i = 0; i < o.小长 && 长 < 39; ++i) f[长++] = QChar(static_cast<char16_t>(o.小[i]));
    if (长 < 6)
        for (int i = 0; i < 7; ++i) f[长++] = QChar(u'0');
    const Decimal96 度 = 数字十进制(o.整, o.整长, 0, o.负);
    bool a, b;
    return 度分秒合成(度, f, 长, 取负, out, a, b);
}

}  // namespace

// ---- Constants -----------------------------------------------------------------

const Decimal96& 二π() { static const Decimal96 v = 解析常数(二π文本); return v; }
const Decimal96& π值() { static const Decimal96 v = 解析常数(π文本); return v; }
const Decimal96& 三π除二() { static const Decimal96 v = 解析常数(三π除二文本); return v; }
const Decimal96& π除二() { static const Decimal96 v = 解析常数(π除二文本); return v; }
const Decimal96& 每度弧度() { static const Decimal96 v = 解析常数(每度弧度文本); return v; }

// ---- Decimal circular functions ---------------------------------------------

数值 HvtSin(const 数值& x) {
    static constexpr char16_t 头[] = u"  进行[HvtSin]正弦运算时， ";
    if (!计算状态.高精度开关) {
        const 数值 a = 修剪文本(x).isEmpty() ? 数值(k零) : x;
        double d = 0;
        if (!转双精度(a, d)) return 函数失败(头, x);
        const double r = std::sin(d);
        if (!std::isfinite(r)) return 函数失败(头, x);
        记录精度损失();
        return 数值(r);
    }
    Decimal96 m;
    if (!周内角(x, m)) return 函数失败(头, x);
    if (m < k零 && Decimal96::add(m, 二π(), m) != 状态::Ok) return 函数失败(头, x);
    // A remainder taken in double (an argument that had fallen) may lie
    // outside one turn; bring it back in decimal before the quadrant tests.
    if (m < k零 || !(m < 二π())) {
        Decimal96 圈, 积;
        if (Decimal96::div(m, 二π(), 圈) != 状态::Ok) return 函数失败(头, x);
        圈 = 圈.rounded(0, Decimal96::Rounding::TowardZero);
        if (Decimal96::mul(圈, 二π(), 积) != 状态::Ok || Decimal96::sub(m, 积, m) != 状态::Ok)
            return 函数失败(头, x);
        if (m < k零 && Decimal96::add(m, 二π(), m) != 状态::Ok) return 函数失败(头, x);
        if (m < k零 || !(m < 二π())) return 函数失败(头, x);
    }
    数值 r;
    if (!正弦级数(m, r)) return 函数失败(头, x);
    return r;
}

数值 HvtCos(const 数值& x) {
    Decimal96 m, d;
    if (!周内角(x, m) || Decimal96::sub(π除二(), m, d) != 状态::Ok)
        return 函数失败(u"  进行[HvtCos]余弦运算时， ", x);
    return HvtSin(数值(d));
}

namespace {
数值 正切类(const 数值& x, bool 余切) {
    const char16_t* 头 = 余切 ? u"  进行[HvtCot]余切运算时， " : u"  进行[HvtTan]正切运算时， ";
    Decimal96 m;
    if (!周内角(x, m)) return 函数失败(头, x);
    const 数值 mv(m);
    Decimal96 s, c, q;
    if (!转十进制(HvtSin(mv), s) || !转十进制(HvtCos(mv), c)) return 函数失败(头, x);
    const 状态 st = 余切 ? Decimal96::div(c, s, q) : Decimal96::div(s, c, q);
    if (st != 状态::Ok) return 函数失败(头, x);
    return 数值(q);
}
}  // namespace

数值 HvtTan(const 数值& x) { return 正切类(x, false); }
数值 HvtCot(const 数值& x) { return 正切类(x, true); }

// ---- Decimal angle conversions ---------------------------------------------

数值 度转梯度(const 数值& x) {
    const 数值 a = Hvt数转数(x);
    if (有E(a)) return 数值(k零);
    const QString s = a.文本();
    const int 点 = txt::instr(s, QChar(u'.'));
    if (点 == 0) return a;

    QString 度文 = txt::left(s, 点 - 1);
    if (txt::trim(度文).isEmpty() || 度文 == QStringLiteral("-")) 度文 = QStringLiteral("0");
    QString f = txt::mid(s, 点);
    if (f.size() < 6) f += QStringLiteral("0000000");

    auto 失败 = [&x]() {
        return 函数失败(u"  进行[度转梯度]运算时， ", x);
    };
    Decimal96 度;
    if (!转十进制(数值(度文), 度)) return 失败();

    const 数值 舍 = 四舍五入(x, 28);
    const bool 取负 = 符号(舍) < 0;

    Decimal96 r;
    bool 秒超 = false, 分超 = false;
    // The messages come in their order (seconds first), so the clamps are
    // re-run step by step only when one of them fired.
    if (!度分秒合成(度, f.constData(), static_cast<int>(f.size()), 取负, r, 秒超, 分超)) return 失败();
    if (秒超)
        交互().告知(a.文本() + QStringLiteral(" 度分秒格式的角度数据--[秒] 数据不能大于60！超出后按60计算。请检查是否角度类型选择错误。"));
    if (分超)
        交互().告知(a.文本() + QStringLiteral(" 度分秒格式的角度数据--[分秒] 数据不能大于59599999....！超出后按60计算。请检查是否角度类型选择错误。"));
    return 数值(r);
}

数值 度分秒转弧度(const 数值& x) {
    const 数值 a = Hvt数转数(x);
    if (有E(a)) return 数值(k零);
    Decimal96 d, r;
    if (!转十进制(度转梯度(a), d) || Decimal96::mul(d, 每度弧度(), r) != 状态::Ok) return 数值();
    return 数值(r);
}

数值 度转弧度(const 数值& x) {
    const 数值 a = Hvt数转数(x);
    if (有E(a)) return 数值(k零);
    Decimal96 d, r;
    switch (计算状态.角度单位) {
    case 3:
        if (!转十进制(a, d)) return 数值();
        return 数值(d);
    case 60:
        return 度分秒转弧度(a);
    case 100:
        if (!转十进制(a, d) || Decimal96::mul(d, 每度弧度(), r) != 状态::Ok) return 数值();
        return 数值(r);
    case 400: {
        static constexpr Decimal96 k零点九 = Decimal96::fromParts(9, 0, 0, false, 1);
        if (!转十进制(a, d) || Decimal96::mul(d, k零点九, d) != 状态::Ok ||
            Decimal96::mul(d, 每度弧度(), r) != 状态::Ok)
            return 数值();
        return 数值(r);
    }
    default:
        return 数值();
    }
}

数值 度转度分秒(const 数值& x) {
    const 数值 a = Hvt数转数(x);
    if (有E(a)) return 数值(k零);
    const QString s = a.文本();
    const int 点 = txt::instr(s, QChar(u'.'));
    if (点 == 0) return a;

    QString D = 取数值的整数部分(a);
    Decimal96 f, f60, M十, 余;
    if (!转十进制(数值(QStringLiteral("0") + txt::mid(s, 点)), f) || Decimal96::mul(f, k六十, f60) != 状态::Ok)
        return 数值(k零);

    QString M = txt::trim(取数值的整数部分(数值(f60)));
    if (!转十进制(数值(M), M十) || Decimal96::sub(f60, M十, 余) != 状态::Ok ||
        Decimal96::mul(余, k六十, 余) != 状态::Ok)
        return 数值(k零);
    if (M.isEmpty() || M十.isZero()) M = QStringLiteral("00");
    else if (M.size() == 1) M.prepend(u'0');

    const 数值 S舍 = 四舍五入(数值(余), 24);
    QString S = txt::trim(S舍.文本());
    Decimal96 S十;
    转十进制(S舍, S十);
    if (S十 == k六十) {
        S = QStringLiteral("00");
        M = QString::number(M.toInt() + 1);
        if (M.size() == 1) M.prepend(u'0');
        if (M == QStringLiteral("60")) {
            M = QStringLiteral("00");
            if (D == QStringLiteral("0")) D = QStringLiteral("1");
            else if (D == QStringLiteral("-0")) D = QStringLiteral("-1");
            else {
                Decimal96 d十;
                转十进制(数值(D), d十);
                Decimal96::add(d十, d十.negative() ? k一.negated() : k一, d十);
                D = d十.toText();
            }
        }
    } else {
        // Seconds always take two integer digits, so that the digit places
        // behind them stay right once the point is taken out.
        int 点位 = txt::instr(S, QChar(u'.'));
        if (点位 == 0) 点位 = S.size() + 1;
        for (int i = 点位 - 1; i < 2; ++i) S.prepend(u'0');
    }
    S.remove(u'.');
    return Hvt数转数(数值(D + QStringLiteral(".") + M + S));
}

QString 角度转文本(double x, const QString& 格式) {
    if (!std::isfinite(x) || 双精度文本(x).contains(u'E')) return QStringLiteral("0°");
    const QString s = 格式化数值(x, 格式);
    const int 点 = txt::instr(s, QChar(u'.'));
    if (点 == 0) return s + QStringLiteral("°00′00″");
    const QString 度 = txt::left(s, 点 - 1);
    QString 分 = txt::mid(s, 点 + 1, 2);
    QString 秒 = txt::mid(s, 点 + 3, 2);
    QString 余 = txt::mid(s, 点 + 5);
    if (分.toInt() > 60) 分 = QStringLiteral("60");
    if (秒.toInt() > 60) 秒 = QStringLiteral("60");
    bool 全零 = true;
    for (QChar c : 余)
        if (c != u'0') 全零 = false;
    if (!全零) 秒 += QStringLiteral(".") + 余;
    return 度 + QStringLiteral("°") + 分 + QStringLiteral("′") + 秒 + QStringLiteral("″");
}

double 文本转角度(const QString& t) {
    const int p度 = txt::instr(t, QChar(u'°'));
    const int p分 = txt::instr(t, QChar(u'′'));
    const int p秒 = txt::instr(t, QChar(u'″'));

    auto 量值 = [](const QString& part) {
        double v = 0.0;
        if (!文本转双精度(txt::trim(part), v) || !std::isfinite(v)) v = 0.0;
        return std::fabs(v);
    };

    // Degrees, rounded to an integer (ties to even), a leading "-" kept.
    QString 度 = QStringLiteral("0");
    if (p度 > 0) {
        const QString part = txt::trim(txt::left(t, p度 - 1));
        if (!part.isEmpty() && part != QStringLiteral("+")) {
            const double v = std::nearbyint(量值(part));
            度 = (part.startsWith(u'-') ? QStringLiteral("-") : QString()) +
                 (v < 1E15 ? QString::number(static_cast<qint64>(v)) : QStringLiteral("0"));
        }
    }

    int 分起 = p度 > 0 ? p度 + 1 : 1;
    QString 分 = QStringLiteral("00");
    if (p分 > 0) {
        const double v = std::nearbyint(量值(txt::mid(t, 分起, p分 - 分起)));
        分 = v < 61 ? QString::number(static_cast<int>(v)).rightJustified(2, u'0') : QStringLiteral("60");
    }

    int 秒起 = p分 > 0 ? p分 + 1 : 分起;
    QString 秒 = QStringLiteral("00");
    if (p秒 > 0) {
        const double v = 量值(txt::mid(t, 秒起, p秒 - 秒起));
        秒 = v < 60 ? 格式化数值(v, QStringLiteral("00.0000")) : QStringLiteral("59.9999");
        秒.remove(u'.');
    }

    double r = 0.0;
    if (!文本转双精度(度 + QStringLiteral(".") + 分 + 秒, r)) r = 0.0;
    return r;
}

// ---- Double angle conversions -------------------------------------------------

double 度转梯度双精度(double x) {
    Decimal96 a;
    if (!双精度十进制(x, a)) return 0.0;
    数字串 o;
    分解(a, o);
    if (o.小长 == 0) return x;
    Decimal96 r;
    if (!度分秒合成双精度(o, x < 0, r)) return 0.0;
    return r.toDouble();
}

double 十进制度转弧度(double x) {
    if (!(std::fabs(x) <= 角度双精度界限)) return 0.0;
    Decimal96 a, r;
    if (!双精度十进制(x, a) || Decimal96::mul(a, 每度弧度(), r) != 状态::Ok) return 0.0;
    return r.toDouble();
}

double 度分秒转弧度双精度(double x) {
    if (!(std::fabs(x) <= 角度双精度界限)) return 0.0;
    return 十进制度转弧度(度转梯度双精度(x));
}

double 度转度分秒双精度(double x) {
    if (!(std::fabs(x) <= 角度双精度界限)) return x;
    Decimal96 a;
    if (!双精度十进制(x, a)) return x;
    数字串 o;
    分解(a, o);
    if (o.小长 == 0) return x;

    // f · 60 is exact in decimal (f has at most 28 digits, 60 adds two).
    const Decimal96 f = 数字十进制(o.小, o.小长, o.小长, false);
    Decimal96 f60, 分十, 余;
    if (Decimal96::mul(f, k六十, f60) != 状态::Ok) return x;
    分十 = f60.rounded(0, Decimal96::Rounding::TowardZero);
    if (Decimal96::sub(f60, 分十, 余) != 状态::Ok) return x;
    int 分 = static_cast<int>(分十.toDouble());
    const double 秒 = 余.toDouble() * 60.0;

    char 秒文[40];
    int 秒长 = 0;
    // Seconds that round (ties to even, two decimals) to 60.00 carry.
    if (std::nearbyint(static_cast<long double>(秒) * 100.0L) >= 6000.0L) {
        秒文[0] = '0';
        秒文[1] = '0';
        秒长 = 2;
        分 += 1;
    } else {
        // 15 decimals at most and 15 significant digits; two integer digits.
        const int 小数 = 秒 >= 10.0 ? 13 : 秒 >= 1.0 ? 14 : 15;
        char 临[40];
        auto res = std::to_chars(临, 临 + sizeof 临, 秒, std::chars_format::fixed, 小数);
        int n = static_cast<int>(res.ptr - 临);
        while (n > 0 && 临[n - 1] == '0') --n;
        if (n > 0 && 临[n - 1] == '.') --n;
        int 整位 = 0;
        while (整位 < n && 临[整位] != '.') ++整位;
        for (int i = 整位; i < 2; ++i) 秒文[秒长++] = '0';
        for (int i = 0; i < n; ++i)
            if (临[i] != '.') 秒文[秒长++] = 临[i];
    }
    if (分 >= 60) {
        分 -= 60;
        整数加一(o);
    }

    char 结果[80];
    int n = 0;
    if (o.负) 结果[n++] = '-';
    std::memcpy(结果 + n, o.整, static_cast<size_t>(o.整长));
    n += o.整长;
    结果[n++] = '.';
    写两位(结果 + n, 分);
    n += 2;
    std::memcpy(结果 + n, 秒文, static_cast<size_t>(秒长));
    n += 秒长;
    return 读双精度(结果, 结果 + n);
}

double 规范度分秒(double x) {
    if (!(std::fabs(x) <= 角度双精度界限)) return x;
    Decimal96 a;
    if (!双精度十进制(x, a)) return x;
    数字串 o;
    分解(a, o);
    if (o.小长 == 0) return x;

    char f[40];
    int 长 = 0;
    for (int i = 0; i < o.小长; ++i) f[长++] = o.小[i];
    if (长 + 1 < 6)
        for (int i = 0; i < 6; ++i) f[长++] = '0';
    // f holds the digits behind the point: mm = f[0..1], ss = f[2..3],
    // r = up to twelve from f[4].
    int mm = 两位数(f);
    int ss = 两位数(f + 2);
    const int r长 = std::min(12, 长 - 4);
    if (ss >= 60) {
        ss -= 60;
        mm += 1;
    }
    if (mm >= 60) {
        mm -= 60;
        整数加一(o);
    }

    char 结果[80];
    int n = 0;
    if (x < 0) 结果[n++] = '-';
    std::memcpy(结果 + n, o.整, static_cast<size_t>(o.整长));
    n += o.整长;
    结果[n++] = '.';
    写两位(结果 + n, mm);
    n += 2;
    写两位(结果 + n, ss);
    n += 2;
    std::memcpy(结果 + n, f + 4, static_cast<size_t>(r长));
    n += r长;
    return 读双精度(结果, 结果 + n);
}
