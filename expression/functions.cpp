// The function pass and the power pass of the bracket-free evaluation.
//
// Kinds: SIN..CSC and the hyperbolics stay decimal where the numeric core
// can (HvtSin's series, 乘方); ATAN..ACSC, LG and LN work in double and
// count one fall each. The inverse circular functions answer in radians for
// 角度单位 3, else in degrees (× 57.29…, through Hvt数转数), packed to
// 度分秒 for 60; for 400 they stay in decimal degrees, not grads.
#include "expression/functions.h"

#include "expression/evaluator.h"
#include "numeric/circular.h"
#include "numeric/guarded.h"
#include "numeric/powers.h"
#include "numeric/text.h"
#include "numeric/interaction.h"
#include "numeric/state.h"

#include <algorithm>
#include <cmath>

using namespace 求值内部;

namespace {

// A fault the function cannot name (a root of a negative number in ASEC,
// arithmetic that no kind can carry): the bracket-free evaluation catches
// it and gives its run-time report.
struct 运行时故障 {};

Decimal96 十进制(const char16_t* 文本) {
    Decimal96 d;
    Decimal96::fromText(QStringView(文本), d);
    return d;
}

数值 必算(const 数值& a, 运算符 op, const 数值& b) {
    数值 r;
    if (!数值运算(a, op, b, r)) throw 运行时故障{};
    return r;
}

double 双精度(const 数值& x) {
    double d = 0;
    if (!转双精度(x, d)) throw 运行时故障{};
    return d;
}

int 比较(const 数值& a, const 数值& b) {
    int c = 0;
    if (!数值比较(a, b, c)) throw 运行时故障{};
    return c;
}

数值 有限双精度(double d) {
    if (!std::isfinite(d)) throw 运行时故障{};
    return 数值(d);
}

// Radians (as a double or an exact decimal) to the unit of the answer.
数值 反函数结果(const 数值& 弧度值) {
    if (计算状态.角度单位 == 3) return 弧度值;
    static const Decimal96 每弧度度数 = 十进制(u"57.295779513082320876798154814");
    数值 v = Hvt数转数(必算(弧度值, 运算符::乘, 数值(每弧度度数)));
    if (计算状态.角度单位 == 60) v = 度转度分秒(v);
    return v;
}

// The sqrt of the inverse sine/cosine, through Hvt数转数 as the text says.
数值 反正余弦根(double x) {
    return Hvt数转数(有限双精度(std::sqrt(1.0 - x * x)));
}

bool 无穷大告知(const QString& 文本, 数值& out) {
    交互().告知(文本);
    out = 数值(无穷大替代值);
    return true;
}

// One function; false after a reported failure. Throws 运行时故障.
bool 计算函数(const QString& 名称, const 数值& 参数, 数值& out) {
    const 数值 x = Hvt数转数(参数);
    if (已失败()) return false;
    const 数值 一(Decimal96::fromInt64(1));
    const 数值 负一(Decimal96::fromInt64(-1));

    if (名称 == u"SIN" || 名称 == u"COS" || 名称 == u"TAN" || 名称 == u"COT" || 名称 == u"SEC" ||
        名称 == u"CSC") {
        const 数值 r = 度转弧度(x);
        if (已失败()) return false;
        if (名称 == u"SIN") out = HvtSin(r);
        else if (名称 == u"COS") out = HvtCos(r);
        else if (名称 == u"TAN") out = HvtTan(r);
        else if (名称 == u"COT") out = HvtCot(r);
        else {
            const 数值 d = 名称 == u"SEC" ? HvtCos(r) : HvtSin(r);
            if (已失败()) return false;
            if (是零(d))
                return 无穷大告知(名称 == u"SEC" ? QStringLiteral("sec(x)为无穷大，采用近似计算....1E+28。")
                                                 : QStringLiteral("csc(x)为无穷大，采用近似计算....1E+28。"),
                                  out);
            out = 必算(一, 运算符::除, d);
        }
        return !已失败();
    }

    if (名称 == u"SINH" || 名称 == u"COSH" || 名称 == u"TANH" || 名称 == u"COTH") {
        const 数值 正 = 乘方(数值(自然常数文本), x);
        if (已失败()) return false;
        const 数值 负 = 乘方(数值(自然常数文本), 必算(x, 运算符::乘, 负一));
        if (已失败()) return false;
        const 数值 差 = 必算(正, 运算符::减, 负);
        const 数值 和 = 必算(正, 运算符::加, 负);
        const 数值 二(Decimal96::fromInt64(2));
        if (名称 == u"SINH") out = 必算(差, 运算符::除, 二);
        else if (名称 == u"COSH") out = 必算(和, 运算符::除, 二);
        else if (名称 == u"TANH") out = 必算(差, 运算符::除, 和);
        else {
            if (是零(差)) return 无穷大告知(QStringLiteral("cth(x)为无穷大，采用近似计算....1E+28。"), out);
            out = 必算(和, 运算符::除, 差);
        }
        return true;
    }

    if (名称 == u"LG" || 名称 == u"LN") {
        out = 名称 == u"LG" ? 求常用对数(x) : 求自然对数(x);
        return !已失败();
    }

    const double 四分之一圆周 = 2.0 * std::atan(1.0);  // a quarter turn in double
    if (名称 == u"ASIN" || 名称 == u"ACOS") {
        const bool 正弦 = 名称 == u"ASIN";
        const QString 名 = 正弦 ? QStringLiteral("Asin(x)") : QStringLiteral("Acos(x)");
        if (比较(x, 一) > 0) {
            报告错误(名 + QStringLiteral("中 x 大于1错误，计算结果无效。"));
            return false;
        }
        if (比较(x, 负一) < 0) {
            报告错误(名 + QStringLiteral("中 x 小于-1错误，计算结果无效。"));
            return false;
        }
        if (比较(x, 一) == 0 || 比较(x, 负一) == 0) {  // exact, no fall
            const bool 正一 = 比较(x, 一) == 0;
            数值 r;
            if (正弦) r = 数值(正一 ? π除二() : π除二().negated());
            else r = 正一 ? 数值(Decimal96()) : 数值(π值());
            out = 反函数结果(r);
            return !已失败();
        }
        const double d = 双精度(x);
        const 数值 s = 反正余弦根(d);
        if (已失败()) return false;
        记录精度损失();
        const double sd = 双精度(s);
        if (sd == 0.0) {
            报告错误(名 + QStringLiteral("无意义，计算结果无效。"));
            return false;
        }
        const double r = 正弦 ? std::atan(d / sd) : std::atan(-d / sd) + 四分之一圆周;
        out = 反函数结果(有限双精度(r));
        return !已失败();
    }

    if (名称 == u"ATAN" || 名称 == u"ACOT" || 名称 == u"ASEC" || 名称 == u"ACSC") {
        const double d = 双精度(x);
        double r = 0;
        if (名称 == u"ATAN") {
            r = std::atan(d);
        } else if (名称 == u"ACOT") {
            r = 四分之一圆周 - std::atan(d);
        } else {
            const double s = std::sqrt(d * d - 1.0);
            if (!std::isfinite(s)) throw 运行时故障{};  // |x| < 1
            if (s == 0.0) {
                报告错误(名称 == u"ASEC" ? QStringLiteral("Asec(x)无意义，计算结果无效。")
                                         : QStringLiteral("Acsc(x)无意义，计算结果无效。"));
                return false;
            }
            const double sg = d > 0 ? 1.0 : d < 0 ? -1.0 : 0.0;
            r = 名称 == u"ASEC" ? 四分之一圆周 - std::atan(sg / s) : std::atan(sg / s);
        }
        记录精度损失();
        out = 反函数结果(有限双精度(r));
        return !已失败();
    }
    throw 运行时故障{};  // not a name of the table: callers check first
}

}  // namespace

bool 名称表中有(const QString& w) {
    // w followed by ";" anywhere in the table text, searched in place.
    const QStringView 表(名称表文本);
    for (qsizetype at = 表.indexOf(w); at >= 0; at = 表.indexOf(w, at + 1))
        if (at + w.size() < 表.size() && 表[at + w.size()] == u';') return true;
    return false;
}

bool 是函数名(const QString& w) {
    for (const auto& n : 函数名称)
        if (n == w) return true;
    return false;
}

数值 函数值(const QString& 名称, const QString& 参数) {
    if (已失败()) return 数值(QStringLiteral("1"));
    try {
        if (!是函数名(名称)) {
            报告错误(名称 + 参数 + QStringLiteral(" 函数错误！请修改算式后计算。"));
            return 数值(QStringLiteral("1"));
        }
        数值 out;
        if (!计算函数(名称, 数值(参数), out)) return 数值(QStringLiteral("1"));
        return out;
    } catch (...) {
        运行时故障报告(名称 + 参数);
        return 数值(QStringLiteral("1"));
    }
}

bool 函数运算(QString& t) {
    t = 符号规整(t, false, true);
    for (int i = 2; i <= txt::len(t) && i < 扫描上限; ++i) {
        const QChar c = t[i - 1];
        if (c.unicode() < u'A' || c.unicode() > u'Z') continue;
        const QString w = 取字母串(t, i);
        if (w == u"E") continue;  // an exponent
        if (!是函数名(w)) {
            报告错误(txt::mid(t, i, 4) + QStringLiteral(" 函数错误！请修改算式后计算。"));
            return false;
        }
        const QString a = 向后取数字(t, i + txt::len(w));
        if (已失败()) return false;
        数值 v;
        if (!计算函数(w, 数值(a), v)) return false;  // may throw: run-time report upstream
        t.replace(i - 1, txt::len(w) + txt::len(a), txt::trim(v.文本()));
    }
    return true;
}

bool 乘方运算(QString& t) {
    t = 符号规整(t, false, true);
    // As in the products: no "^" is left ahead of the last value written.
    int 起 = 2;
    for (int 轮 = 0; 轮 < 扫描上限; ++轮) {
        const int i = txt::instr(t, QChar(u'^'), 起);
        if (i < 1) return true;
        const QString a = 向前取数字(t, i - 1);
        if (已失败()) return false;
        const QString b = 向后取数字(t, i + 1);
        if (已失败()) return false;
        const 数值 v = 乘方(数值(a), 数值(b));
        if (已失败()) return false;
        t.replace(i - 1 - txt::len(a), txt::len(a) + 1 + txt::len(b), txt::trim(v.文本()));
        起 = std::max(2, i - txt::len(a));
    }
    运行时故障报告(t);
    return false;
}
