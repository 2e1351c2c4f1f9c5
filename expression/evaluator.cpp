// The rewriting evaluator. Every pass works on one QString with 1-based
// positions (txt:: helpers); a pass that fails has already reported into
// the collector and the caller answers "1" at once.
//
// Progress: every scan loop either moves its index forward or removes one
// operator from the text (an inserted value never holds an operator that
// the same pass would find again: a leading sign stands at position 1 and a
// sign behind an E is passed over), and each carries 扫描上限 as a bound.
#include "expression/evaluator.h"

#include "expression/functions.h"
#include "numeric/guarded.h"
#include "numeric/text.h"
#include "numeric/value.h"
#include "numeric/interaction.h"
#include "expression/state.h"
#include "numeric/state.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace {

const QString 消息括号不能配对 = QStringLiteral(" 算式中--括号不能配对--错误,请修改算式！");
const QString 消息括号顺序 = QStringLiteral(" 算式中--括号顺序--错误,请修改算式！");
const QString 消息括号无法配对 = QStringLiteral(" 算式中--括号无法配对--错误,请修改算式！");
const QString 消息小数点太多 = QStringLiteral(" 表达式--小数点数太多--错误！请修改算式后计算。");
const QString 消息无数字 = QStringLiteral(" 表达式--无数字--错误！请修改算式后计算。");
const QString 消息太多正负号 = QStringLiteral(" 表达式--太多正负号--错误！请修改算式后计算。");
const QString 消息正负号太多 = QStringLiteral(" 表达式--正负号太多--错误！请修改算式后计算。");
const QString 消息多个E = QStringLiteral(" 表达式--存在多个 e E 字母--错误！请修改算式后计算。");

bool 是符号(QChar c) { return c == u'+' || c == u'-'; }
bool 是E(QChar c) { return c == u'E' || c == u'e'; }
bool 是大写字母(QChar c) { return c.unicode() >= u'A' && c.unicode() <= u'Z'; }
bool 是拉丁字母(QChar c) {
    const char16_t u = c.unicode();
    return (u >= u'A' && u <= u'Z') || (u >= u'a' && u <= u'z');
}
bool 是圆周率(QChar c) { return c == u'Π' || c == u'π'; }
bool 是自然常数(QChar c) { return c == u'Ε' || c == u'ε'; }

// Failure A of the entry: shown at once, then collected.
QString 括号失败(const QString& 文本, const QString& 消息) {
    const QString m = 文本 + 消息;
    交互().告知(m);
    报告错误(m);
    return QStringLiteral("1");
}

// The readers' failure tail: the detail goes to the record uncounted, then
// the general sentence is counted (and becomes 首个错误 if first).
void 读数失败(const QString& 片段, const QString& 细节, const QString& 头, const QString& 尾) {
    计算状态.错误提示 = 片段 + 细节;
    计算状态.错误记录 += 计算状态.错误提示 + QStringLiteral("\r\n");
    报告错误(头 + txt::trim(片段) + 尾);
}

int 计数(const QString& s, QChar c) { return static_cast<int>(s.count(c)); }

// QString::toUpper for the characters an expression holds: ASCII and the
// Greek π ε (to Π Ε) are folded in place; false at any other character
// beyond ASCII, which is left to QString::toUpper (folding what was done
// already again changes nothing).
bool 简单大写(QChar* w, qsizetype n) {
    for (qsizetype i = 0; i < n; ++i) {
        const char16_t u = w[i].unicode();
        if (u < 0x80) {
            if (u >= u'a' && u <= u'z') w[i] = QChar(u - (u'a' - u'A'));
        } else if (u == u'π') {
            w[i] = QChar(u'Π');
        } else if (u == u'ε') {
            w[i] = QChar(u'Ε');
        } else if (u != u'Π' && u != u'Ε') {
            return false;
        }
    }
    return true;
}

bool 需大写(const QString& t) {
    for (const QChar c : t) {
        const char16_t u = c.unicode();
        if ((u >= u'a' && u <= u'z') || u >= 0x80) return true;
    }
    return false;
}

QString 大写(QString t) {
    if (!需大写(t)) return t;
    if (!简单大写(t.data(), t.size())) return t.toUpper();
    return t;
}

}  // namespace

namespace 求值内部 {

void 运行时故障报告(const QString& 文本) {
    报告错误(QStringLiteral("计算无括号表达式过程中，") + 文本 +
             QStringLiteral("出现超出计算范围错误！返回[1]。"));
}

}  // namespace 求值内部

using namespace 求值内部;

// ---------------------------------------------------------------------------

QString 取字母串(const QString& s, int p) {
    if (p < 1) p = 1;
    int e = p;
    while (e <= txt::len(s) && 是拉丁字母(txt::at(s, e))) ++e;
    return txt::mid(s, p, e - p);
}

namespace {
// "ab" → r over w[0..n), left to right, pairs not overlapping: what
// QString::replace of the two-unit text by the one unit does, in place.
void 折叠(QChar* w, qsizetype& n, char16_t a, char16_t b, char16_t r) {
    qsizetype o = 0;
    for (qsizetype i = 0; i < n;) {
        if (i + 1 < n && w[i] == a && w[i + 1] == b) {
            w[o++] = QChar(r);
            i += 2;
        } else {
            w[o++] = w[i++];
        }
    }
    n = o;
}
}  // namespace

namespace 求值内部 {

QString 加垫(QStringView s) {
    QString t;
    t.reserve(s.size() + 2);
    t.append(u' ');
    t.append(s);
    t.append(u' ');
    return t;
}

// True when 符号规整 would give the text back unchanged: no blank, no pair
// that one of its folds replaces ("++" "-+", with 四折 also "--" "+-"),
// nothing to upper-case (anything beyond ASCII is left to the full path).
bool 已规整(QStringView s, bool 四折) {
    // Classes of the ASCII units: 4 a unit the tidying changes (blank,
    // lower case), 1 a sign, 8 on top for "+", which every fold takes as
    // its second unit (四折 takes any sign there).
    static constexpr auto 类 = [] {
        std::array<std::uint8_t, 128> k{};
        k[u' '] = 4;
        for (char16_t c = u'a'; c <= u'z'; ++c) k[c] = 4;
        k[u'+'] = 1 | 8;
        k[u'-'] = 1;
        return k;
    }();
    const std::uint8_t 第二 = 四折 ? 1 : 8;
    std::uint8_t 前 = 0;
    for (const QChar c : s) {
        const char16_t u = c.unicode();
        if (u >= 0x80) return false;
        const std::uint8_t k = 类[u];
        if ((k & 4) || ((前 & 1) && (k & 第二))) return false;
        前 = k;
    }
    return true;
}

// These run several times per operator, so they build their answer in one
// allocation: the text handed in is often tidy already and comes back as
// it is; else blanks and U+3000 are dropped while copying, the case is
// folded on the way (ASCII, π ε; the folds touch only signs, so the order
// does not matter), and the sign folds run in place, only where two signs
// stand together (elsewhere they change nothing).
QString 符号规整(const QString& s, bool 四折, bool 垫空) {
    if (垫空 ? s.size() >= 3 && s.front() == u' ' && s.back() == u' ' &&
                   已规整(QStringView(s).mid(1, s.size() - 2), 四折)
             : !s.isEmpty() && 已规整(s, 四折))
        return s;
    const qsizetype 垫 = 垫空 ? 1 : 0;
    QString t(s.size() + 2 * 垫, Qt::Uninitialized);
    QChar* const w = t.data() + 垫;
    const char16_t* const 源 = reinterpret_cast<const char16_t*>(s.constData());
    const qsizetype 长 = s.size();
    qsizetype n = 0;
    bool 相邻 = false, 前符 = false, 其他 = false;
    for (qsizetype k = 0; k < 长; ++k) {
        char16_t u = 源[k];
        if (u == u' ' || u == 0x3000) continue;
        if (static_cast<char16_t>(u - u'a') < 26) {
            u = static_cast<char16_t>(u - (u'a' - u'A'));
        } else if (u >= 0x80) {
            if (u == u'π') u = u'Π';
            else if (u == u'ε') u = u'Ε';
            else if (u != u'Π' && u != u'Ε') 其他 = true;
        }
        const bool 符 = u == u'+' || u == u'-';
        相邻 = 相邻 || (符 && 前符);
        前符 = 符;
        w[n++] = QChar(u);
    }
    if (n == 0) return 垫空 ? QStringLiteral(" 0 ") : QStringLiteral("0");
    if (相邻) {
        折叠(w, n, u'+', u'+', u'+');
        折叠(w, n, u'-', u'+', u'-');
        if (四折) {
            折叠(w, n, u'-', u'-', u'+');
            折叠(w, n, u'+', u'-', u'-');
        }
    }
    if (其他) {  // what QString::toUpper alone knows
        const QString u = QStringView(w, n).toString().toUpper();
        return 垫空 ? 加垫(u) : u;
    }
    if (垫空) {
        t[0] = u' ';
        w[n] = u' ';
    }
    t.truncate(n + 2 * 垫);
    return t;
}

void 重垫(QString& t) {
    qsizetype b = 0, e = t.size();
    while (b < e && t[b] == u' ') ++b;
    while (e > b && t[e - 1] == u' ') --e;
    if (b == 1 && e == t.size() - 1) return;  // one blank at each end already
    t = 加垫(QStringView(t).mid(b, e - b));
}

}  // namespace 求值内部

QString 整理符号(const QString& s) { return 符号规整(s, false, false); }

QString 合并正负号(const QString& s) { return 符号规整(s, true, false); }

QString 取变量值(QChar c) {
    if (txt::isAsciiDigit(c)) return QString(c);
    if (是圆周率(c)) return 圆周率文本;
    if (是自然常数(c)) return 自然常数文本;
    const int k = 字母序号(c.unicode());
    if (k >= 0) return txt::trim(变量状态.字母变量[static_cast<std::size_t>(k)].文本());
    报告错误(QStringLiteral("表达式计算过程中：[ ") + QString(c) + QStringLiteral(" ] 字符错误！返回1值。"));
    return QStringLiteral("1");
}

QString 取变量值(const QString& c) {
    if (c.isEmpty()) {
        报告错误(QStringLiteral("表达式计算过程中：[  ] 字符错误！返回1值。"));
        return QStringLiteral("1");
    }
    return 取变量值(c[0]);
}

// The two readers walk the text in place; the text l or r that a failure
// quotes is cut out only then.
QString 向前取数字(const QString& s, int p) {
    if (p > txt::len(s)) p = txt::len(s);
    if (p < 1) {
        const QString l = txt::left(s, p);
        读数失败(l, 消息无数字, QStringLiteral("  进行[向前取数字]运算时， "),
                 QStringLiteral(" 数值超出计算范围，我无法计算！返回错误信息。"));
        return l;
    }
    const QChar* const 文 = s.constData();
    const auto d = [文](int i) { return 文[i - 1]; };  // the unit at position i
    int 点 = 0, 数字 = 0, 符号 = 0, e数 = 0;
    int 起点 = 1;
    for (int i = p; i >= 1; --i) {
        const QChar c = d(i);
        if (c == u'.') ++点;
        else if (txt::isAsciiDigit(c)) ++数字;
        else if (是符号(c)) ++符号;
        else if (是E(c)) { ++e数; 点 = 0; 数字 = 0; 符号 = 0; }
        if (c == u' ' && 数字 == 0) continue;
        if (是符号(c) && 数字 > 0) {
            if (i == 1) { 起点 = 1; break; }
            const QChar b = d(i - 1);
            if (b == u' ' || b == u'-' || b == u'+' || b == u'^' || b == u'*' || b == u'/' || b == u'\\') {
                起点 = i;
                break;
            }
            if (!是E(b)) { 起点 = i + 1; break; }
            if (符号 > 1) { 起点 = i + 1; break; }
            continue;
        }
        if (!(txt::isAsciiDigit(c) || 是E(c) || c == u'.' || 是符号(c))) { 起点 = i + 1; break; }
        起点 = i;
    }
    const QString* 细节 = nullptr;
    if (点 > 1) 细节 = &消息小数点太多;
    else if (数字 == 0) 细节 = &消息无数字;
    else if (符号 >= 3) 细节 = &消息太多正负号;
    else if (e数 > 1) 细节 = &消息多个E;
    if (细节) {
        const QString l = txt::left(s, p);
        读数失败(l, *细节, QStringLiteral("  进行[向前取数字]运算时， "),
                 QStringLiteral(" 数值超出计算范围，我无法计算！返回错误信息。"));
        return l;
    }
    return 起点 > p ? QString() : s.mid(起点 - 1, p - 起点 + 1);
}

QString 向后取数字(const QString& s, int p) {
    if (p > txt::len(s)) p = txt::len(s);
    auto 失败 = [&](const QString& 细节) {
        const QString r = txt::mid(s, p);
        读数失败(r, 细节, QStringLiteral("  进行[向后取数字]运算时， "),
                 QStringLiteral(" 数值超出计算范围，我无法计算！返回错误数值。"));
        return r;
    };
    if (p < 1) return 失败(消息无数字);
    int 点 = 0, 数字 = 0, 符号 = 0, e数 = 0;
    int 末 = 0;
    const QChar* const 文 = s.constData() + (p - 1);
    const auto r = [文](int i) { return 文[i - 1]; };  // the unit at position i of s from p on
    const int n = txt::len(s) - p + 1;
    for (int i = 1; i <= n; ++i) {
        const QChar c = r(i);
        if (c == u' ' && 数字 == 0) { 末 = i; continue; }
        if (是符号(c) && 数字 > 0) { 末 = i - 1; break; }
        if (c == u'.') {
            ++点;
            末 = i;
            if (点 > 1) return 失败(消息小数点太多);
        } else if (txt::isAsciiDigit(c)) {
            ++数字;
            末 = i;
        } else if (是符号(c)) {
            ++符号;
            if (符号 > 1) return 失败(消息正负号太多);
        } else if (是E(c)) {
            ++e数;
            点 = 0; 数字 = 0; 符号 = 0;
        } else {
            末 = i - 1;
            break;
        }
    }
    if (数字 < 1) return 失败(消息无数字);
    if (符号 >= 2) return 失败(消息太多正负号);
    if (e数 > 1) return 失败(消息多个E);
    return 末 < 1 ? QString() : s.mid(p - 1, 末);
}

// ---------------------------------------------------------------------------
// The passes of 无括号表达式计算. Each returns false after a reported failure.

namespace {

// txt::splice in place: n units at 1-based start become `with`.
void 替换(QString& t, int start, int n, const QString& with) {
    if (start >= 1 && n >= 0 && start - 1 <= t.size()) t.replace(start - 1, n, with);
    else t = txt::splice(t, start, n, with);
}

// Constants: Π/π and Ε/ε become their 29-digit texts.
void 常数代入(QString& t) {
    for (int i = 2; i <= txt::len(t) - 1 && i < 扫描上限;) {
        const QChar c = t[i - 1];
        const QString* v = 是圆周率(c) ? &圆周率文本 : 是自然常数(c) ? &自然常数文本 : nullptr;
        if (v) {
            替换(t, i, 1, *v);
            i += txt::len(*v);
        } else {
            ++i;
        }
    }
}

// Letter variables: a capital standing alone (no letter on either side)
// is replaced by its value; E also needs a non-digit ahead (2E3 keeps its
// exponent). A standing-alone O fails.
bool 变量代入(QString& t) {
    for (int i = 2; i <= txt::len(t) - 1 && i < 扫描上限;) {
        const QChar c = t[i - 1];
        if (!是大写字母(c) || 是大写字母(t[i - 2]) || 是大写字母(t[i])) {
            ++i;
            continue;
        }
        if (c == u'O') {
            报告错误(QStringLiteral("出错了！式中出现了英文O字母变量！请修改算式后计算。"));
            return false;
        }
        if (c == u'E' && txt::isAsciiDigit(t[i - 2])) {
            ++i;
            continue;
        }
        const QString v = 取变量值(c);
        if (已失败()) return false;
        替换(t, i, 1, v);
        i += txt::len(v);
    }
    return true;
}

// Postfix ! % ‰. The index does not restart and does not follow the text
// as it shrinks; the bound is the length at the start (so in "100%+3!" the
// "!" is passed by, and the sums read 1+3).
bool 后缀运算(QString& t) {
    重垫(t);
    const int 上限 = txt::len(t);
    for (int i = 2; i <= 上限 && i < 扫描上限; ++i) {
        const QChar c = txt::at(t, i);
        const bool 阶乘 = c == u'!', 百分 = c == u'%', 千分 = c == u'‰';
        if (!阶乘 && !百分 && !千分) continue;
        if (i - 1 < 2) {  // nothing can stand ahead of the operator
            报告错误(t + (阶乘 ? QStringLiteral(" 阶乘错误！请修改算式后计算。")
                          : 百分 ? QStringLiteral(" % 错误！请修改算式后计算。")
                                 : QStringLiteral(" ‰ 错误！请修改算式后计算。")));
            return false;
        }
        const QString x = 向前取数字(t, i - 1);
        if (已失败()) return false;
        if (百分 || 千分) {
            数值 v;
            if (!数值除(Hvt数转数(数值(x)), 数值(Decimal96::fromInt64(百分 ? 100 : 1000)), v)) {
                运行时故障报告(t);
                return false;
            }
            if (已失败()) return false;
            替换(t, i - txt::len(x), txt::len(x) + 1, txt::trim(v.文本()));
            continue;
        }
        // Factorial of the magnitude: the sign (and anything ahead of a
        // "-") stays in the text.
        QString m = x;
        const int 减号 = txt::instrRev(m, QStringLiteral("-"));
        if (减号 > 0) m = txt::mid(m, 减号 + 1);
        double d = 0;
        if (!文本转双精度(m, d) || !std::isfinite(d)) {
            运行时故障报告(t);
            return false;
        }
        if (d > 2147483647.0) d = 2147483647.0;  // far beyond 26!, refused below
        const long n = std::lrint(d);             // nearest, ties to even
        Decimal96 积 = Decimal96::fromInt64(1);
        static const Decimal96 上界 = [] {
            Decimal96 b;
            Decimal96::fromText(u"1E+28", b);
            return b;
        }();
        for (long k = 1; k <= n; ++k) {
            Decimal96 下一个;
            if (Decimal96::mul(积, Decimal96::fromInt64(k), 下一个) != Decimal96::Status::Ok ||
                上界 < 下一个) {
                报告错误(QStringLiteral("阶乘计算时数值太大，超出计算范围。"));
                return false;
            }
            积 = 下一个;
        }
        替换(t, i - txt::len(m), txt::len(m) + 1, 积.toText());
    }
    return true;
}

// * / \ of equal rank, left to right, restarting after each.
bool 乘除运算(QString& t) {
    重垫(t);
    // Each round scans from position 2; ahead of the last value written
    // there is no operator left (the previous round passed over it, and a
    // number text holds none), so the scan may begin at that value.
    int 起 = 2;
    for (int 轮 = 0; 轮 < 扫描上限; ++轮) {
        int i = 起;
        const int n = txt::len(t);
        while (i <= n) {
            const QChar c = t[i - 1];
            if (c == u'*' || c == u'/' || c == u'\\') break;
            ++i;
        }
        if (i > n) return true;
        const QChar op = t[i - 1];
        const QString a = 向前取数字(t, i - 1);
        if (已失败()) return false;
        const QString b = 向后取数字(t, i + 1);
        if (已失败()) return false;
        数值 v;
        if (op == u'*') {
            v = 求两数积(a, b);
        } else if (op == u'\\') {
            v = 求两数余(a, b);
        } else {
            if (是零(Hvt数转数(数值(txt::trim(b))))) {
                if (!已失败()) 报告错误(t + QStringLiteral("  除数为0错误！请修改算式后计算。"));
                return false;
            }
            if (已失败()) return false;
            v = 求两数商(a, b);
        }
        if (已失败()) return false;
        替换(t, i - txt::len(a), txt::len(a) + 1 + txt::len(b), txt::trim(v.文本()));
        起 = std::max(2, i - txt::len(a));
    }
    运行时故障报告(t);
    return false;
}

// + and -: the value replaces everything up to the end of b (a must reach
// the start by now), signs are folded again, and the scan restarts.
bool 加减运算(QString& t) {
    t = 合并正负号(t);
    // Once t reads back unchanged through 合并正负号, it stays so while
    // values that do so too replace its head (a number text ends in a
    // digit, so no two signs meet at the seam): the fold is then skipped.
    bool 已整 = 已规整(t, true);
    for (int 轮 = 0; 轮 < 扫描上限; ++轮) {
        int i = 2;
        bool 找到 = false;
        while (i <= txt::len(t) - 1) {
            const QChar c = t[i - 1];
            const QChar b = t[i - 2];
            if (是符号(c) && !是E(b) && b != u' ') { 找到 = true; break; }
            ++i;
        }
        if (!找到) return true;
        const QString a = 向前取数字(t, i - 1);
        if (已失败()) return false;
        const QString b = 向后取数字(t, i + 1);
        if (已失败()) return false;
        const 数值 v = t[i - 1] == u'+' ? 求两数和(a, b) : 求两数差(a, b);
        if (已失败()) return false;
        // v's text and what stands behind b: t from 后 on.
        const int 后 = i + 1 + txt::len(b);
        const QString 值 = txt::trim(v.文本());
        已整 = 已整 && !值.isEmpty() && 已规整(值, true) && !是符号(值.back());
        if (后 <= txt::len(t)) t.replace(0, 后 - 1, 值);
        else t = 值;
        if (!已整) {
            t = 合并正负号(t);
            已整 = 已规整(t, true);
        }
    }
    运行时故障报告(t);
    return false;
}

// A plain number between blanks: a sign, digits and at most one point,
// at least one digit. The passes leave it as it is (no letter, no operator
// past the first position), and the last step reads it: so its value is
// that reading at once. The number itself, else an empty view.
QStringView 纯数(const QString& t) {
    QStringView v(t);
    while (!v.isEmpty() && v.front() == u' ') v = v.mid(1);
    while (!v.isEmpty() && v.back() == u' ') v.chop(1);
    qsizetype i = 0;
    if (i < v.size() && 是符号(v[i])) ++i;
    bool 点 = false, 数字 = false;
    for (; i < v.size(); ++i) {
        const QChar c = v[i];
        if (txt::isAsciiDigit(c)) 数字 = true;
        else if (c == u'.' && !点) 点 = true;
        else return {};
    }
    return 数字 ? v : QStringView();
}

QString 无括号计算过程(const QString& 文本) {
    if (已失败()) return QStringLiteral("1");
    QString t = 大写(文本);
    if (t.isEmpty()) return QStringLiteral("0");
    if (txt::len(t) == 1) return 取变量值(t[0]);
    if (const QStringView x = 纯数(t); !x.isEmpty()) return Hvt数转数(数值(x.toString())).文本();

    t = 符号规整(t, false, true);
    常数代入(t);
    if (!变量代入(t)) return QStringLiteral("1");
    if (!函数运算(t)) return QStringLiteral("1");
    if (!后缀运算(t)) return QStringLiteral("1");
    if (!乘方运算(t)) return QStringLiteral("1");
    if (!乘除运算(t)) return QStringLiteral("1");
    if (!加减运算(t)) return QStringLiteral("1");
    t = 合并正负号(t);
    const QString x = 向后取数字(t, 1);
    if (已失败()) return QStringLiteral("1");
    const 数值 v = Hvt数转数(数值(x));
    if (已失败()) return QStringLiteral("1");
    return v.文本();
}

}  // namespace

QString 无括号表达式计算(const QString& 文本) {
    try {
        return 无括号计算过程(文本);
    } catch (...) {
        运行时故障报告(文本);
        return QStringLiteral("1");
    }
}

namespace {

QString 表达式计算过程(const QString& 文本) {
    if (计算状态.错误数 >= 1) return QStringLiteral("1");
    QString t = 大写(txt::trim(文本));
    if (t.isEmpty()) return QStringLiteral("0");
    if (txt::len(t) == 1) return 取变量值(t[0]);

    const int 开 = 计数(t, u'('), 闭 = 计数(t, u')');
    if (开 != 闭) return 括号失败(t, 消息括号不能配对);
    if (开 == 0) return 无括号表达式计算(t);

    // Order check. It is made at every inner place, not only behind a "(":
    // a properly nested text passes at every place anyway, and so texts
    // like ")1+2(" or "(1))+((2)" are refused here rather than reaching the
    // passes with a stray bracket. Running counts keep it linear.
    {
        const int n = txt::len(t);
        int l开 = t[0] == u'(' ? 1 : 0, l闭 = t[0] == u')' ? 1 : 0;  // in t up to i - 1
        for (int i = 2; i <= n - 1; ++i) {
            const int r开 = 开 - l开, r闭 = 闭 - l闭;
            if (l闭 > l开) return 括号失败(txt::left(t, i - 1), 消息括号顺序);
            if (r开 > r闭) return 括号失败(txt::mid(t, i), 消息括号顺序);
            if (l开 - l闭 != r闭 - r开) return 括号失败(t, 消息括号无法配对);
            l开 += t[i - 1] == u'(';
            l闭 += t[i - 1] == u')';
        }
    }

    // Innermost pairs first, one per round ("()" gives 0: the empty inner
    // text evaluates to "0").
    // The first innermost pair is the last "(" ahead of the first ")".
    for (int 轮 = 0; 轮 < 开; ++轮) {
        const int 闭位 = static_cast<int>(t.indexOf(u')')) + 1;
        if (闭位 < 1) break;
        const int 开位 = 闭位 >= 2 ? static_cast<int>(t.lastIndexOf(u'(', 闭位 - 2)) + 1 : 0;
        if (开位 < 1) break;
        const QString v = 无括号表达式计算(txt::mid(t, 开位 + 1, 闭位 - 开位 - 1));
        替换(t, 开位, 闭位 - 开位 + 1, v);
        if (已失败()) return QStringLiteral("1");
    }

    t = 整理符号(t);
    t = 无括号表达式计算(t);
    if (已失败()) return QStringLiteral("1");
    return txt::trim(t);
}

}  // namespace

QString 表达式计算(const QString& 文本) {
    try {
        return 表达式计算过程(文本);
    } catch (...) {
        报告错误(QStringLiteral("  表达式计算过程中：") + 文本 +
                 QStringLiteral("出现超出计算范围错误！返回1值。"));
        return QStringLiteral("1");
    }
}
