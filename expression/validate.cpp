// Syntax validation: operator repair, number canonicalisation, the
// operator and bracket check, and the display form. See validate.h.
#include "expression/validate.h"

#include "expression/evaluator.h"
#include "numeric/guarded.h"
#include "numeric/text.h"
#include "numeric/interaction.h"
#include "numeric/state.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace {

struct 替换项 {
    std::u16string_view 原;
    std::u16string_view 新;
};

// ---- Two-character operator pairs --------------------------------------------
// Every pattern of the operator tables below is two characters of 运算字符.
// Which of the 12×12 pairs stand somewhere in a text is found in one pass, so
// a table of such pairs is applied by looking each pattern up instead of
// scanning the text once per pattern; the pairs are found anew after every
// replacement, since it changes its neighbours.
constexpr int 运算字符数 = 12;

constexpr int 运算序号(char16_t c) {
    switch (c) {
    case u'.': return 0;
    case u'^': return 1;
    case u'*': return 2;
    case u'/': return 3;
    case u'\\': return 4;
    case u'%': return 5;
    case u'!': return 6;
    case u'+': return 7;
    case u'-': return 8;
    case u'‰': return 9;
    case u'(': return 10;
    case u')': return 11;
    default: return -1;
    }
}

// 运算序号 of every ASCII unit, for the scan below.
constexpr std::array<signed char, 128> 运算序号表 = [] {
    std::array<signed char, 128> r{};
    for (int c = 0; c < 128; ++c) r[static_cast<std::size_t>(c)] = static_cast<signed char>(运算序号(char16_t(c)));
    return r;
}();

inline int 快运算序号(char16_t c) {
    return c < 128 ? 运算序号表[c] : (c == u'‰' ? 9 : -1);
}

// Which of the 12×12 operator pairs a text holds, a bit each (a * 12 + b).
struct 运算对集 {
    std::uint64_t 位[3] = {0, 0, 0};

    constexpr 运算对集() = default;
    explicit 运算对集(const QString& t) {
        const char16_t* p = reinterpret_cast<const char16_t*>(t.utf16());
        const qsizetype n = t.size();
        int 前 = n > 0 ? 快运算序号(p[0]) : -1;
        for (qsizetype i = 1; i < n; ++i) {
            const int 后 = 快运算序号(p[i]);
            if (前 >= 0 && 后 >= 0) 加(前 * 运算字符数 + 后);
            前 = 后;
        }
    }
    constexpr void 加(int k) { 位[k >> 6] |= std::uint64_t{1} << (k & 63); }
    constexpr bool 有(int k) const { return (位[k >> 6] >> (k & 63)) & 1; }
    constexpr bool 交(const 运算对集& o) const {
        return (位[0] & o.位[0]) | (位[1] & o.位[1]) | (位[2] & o.位[2]);
    }
};

template <std::size_t N>
constexpr bool 全是运算对(const 替换项 (&表)[N]) {
    for (const auto& e : 表)
        if (e.原.size() != 2 || 运算序号(e.原[0]) < 0 || 运算序号(e.原[1]) < 0) return false;
    return true;
}

// A table of operator pairs with the bit of each row and of all of them.
template <std::size_t N>
struct 运算对表 {
    const 替换项 (&行)[N];
    std::array<int, N> 位号{};
    运算对集 全部;

    constexpr explicit 运算对表(const 替换项 (&表)[N]) : 行(表) {
        for (std::size_t i = 0; i < N; ++i) {
            位号[i] = 运算序号(表[i].原[0]) * 运算字符数 + 运算序号(表[i].原[1]);
            全部.加(位号[i]);
        }
    }
};

// The rows in order, each to all occurrences; a row whose pair the text
// lacks is passed over. `对` holds the pairs of `t` on entry and is kept so.
template <std::size_t N>
void 依运算对表替换(QString& t, 运算对集& 对, const 运算对表<N>& 表) {
    if (!对.交(表.全部)) return;
    for (std::size_t i = 0; i < N; ++i) {
        if (!对.有(表.位号[i])) continue;
        const auto& e = 表.行[i];
        t.replace(reinterpret_cast<const QChar*>(e.原.data()), 2,
                  reinterpret_cast<const QChar*>(e.新.data()), static_cast<qsizetype>(e.新.size()),
                  Qt::CaseSensitive);
        对 = 运算对集(t);
        if (!对.交(表.全部)) return;
    }
}

inline const char16_t* 单元(const QString& s) { return reinterpret_cast<const char16_t*>(s.utf16()); }

using txt::去空格;

const QString 零 = QStringLiteral("0");
const QString 算式错误 = QStringLiteral("算式错误");

// ---------------------------------------------------------------------------
// 修复相邻运算符: the doubles, applied twice.
constexpr 替换项 重复符号表[] = {
    {u"..", u"."}, {u"^^", u"^"}, {u"**", u"*"}, {u"//", u"/"}, {u"\\\\", u"\\"},
    {u"%%", u"%"}, {u"!!", u"!"},  // no double factorial: 3!! is 3!
    {u"++", u"+"}, {u"--", u"+"}, {u"+-", u"-"}, {u"-+", u"-"}, {u"‰‰", u"‰"},
};
static_assert(std::size(重复符号表) == 12);
static_assert(全是运算对(重复符号表));
constexpr 运算对表 重复符号对(重复符号表);

// Then, in order: operators behind "(" ("(-" stays, it is a sign); operators
// ahead of ")"; "()"; a binary operator or point ahead of a postfix one (the
// postfix wins); two binary operators (the second wins); a plus behind an
// operator; the last sign pairs.
constexpr 替换项 运算符修复表[] = {
    {u"(!", u"("}, {u"(%", u"("}, {u"(‰", u"("}, {u"(^", u"("}, {u"(*", u"("},
    {u"(/", u"("}, {u"(\\", u"("}, {u"(+", u"("},
    {u"^)", u")"}, {u"*)", u")"}, {u"/)", u")"}, {u"\\)", u")"}, {u"+)", u")"},
    {u"-)", u")"}, {u".)", u")"},
    {u"()", u"(0)"},
    {u"^!", u"!"}, {u"*!", u"!"}, {u"/!", u"!"}, {u"\\!", u"!"}, {u"+!", u"!"},
    {u"-!", u"!"}, {u".!", u"!"},
    {u"^%", u"%"}, {u"*%", u"%"}, {u"/%", u"%"}, {u"\\%", u"%"}, {u"+%", u"%"},
    {u"-%", u"%"}, {u".%", u"%"},
    {u"^‰", u"‰"}, {u"*‰", u"‰"}, {u"/‰", u"‰"}, {u"\\‰", u"‰"}, {u"+‰", u"‰"},
    {u"-‰", u"‰"}, {u".‰", u"‰"},
    {u"*^", u"^"}, {u"/^", u"^"}, {u"+^", u"^"}, {u"^^", u"^"}, {u"\\^", u"^"},
    {u"-^", u"^"},
    {u"**", u"*"}, {u"/*", u"*"}, {u"+*", u"*"}, {u"^*", u"*"}, {u"\\*", u"*"},
    {u"-*", u"*"},
    {u"*/", u"/"}, {u"//", u"/"}, {u"+/", u"/"}, {u"^/", u"/"}, {u"\\/", u"/"},
    {u"-/", u"/"},
    {u"*\\", u"\\"}, {u"/\\", u"\\"}, {u"+\\", u"\\"}, {u"^\\", u"\\"},
    {u"\\\\", u"\\"}, {u"-\\", u"\\"},
    {u"*+", u"*"}, {u"/+", u"/"}, {u"++", u"+"}, {u"^+", u"^"}, {u"\\+", u"\\"},
    {u"-+", u"-"},
    {u"+-", u"-"}, {u"--", u"+"},
};
static_assert(std::size(运算符修复表) == 69);
static_assert(全是运算对(运算符修复表));
constexpr 运算对表 运算符修复对(运算符修复表);

// ---------------------------------------------------------------------------
// 检查运算符相邻's neighbour classes.
constexpr txt::CharSet 后禁字符集(u"/*^\\)!%‰");  // what may not follow an opener, sign or binary operator
constexpr txt::CharSet 前禁字符集(u"-+*/^\\(");   // what may not precede a closer, postfix or binary operator
constexpr txt::CharSet 阶乘前禁字符集(u"+!-*/^\\(");

const QString 相邻错误消息 = QStringLiteral(" 算式中存在多个运算符相临的错误，请修改算式！！！");
const QString 括号顺序消息 = QStringLiteral(" 算式中--括号顺序--错误,请修改。");
const QString 括号配对消息 = QStringLiteral(" 算式中--括号无法配对--错误,请修改。");

// Faults of each character of t with its neighbours; ahead of the first and
// behind the last stands a blank.
int 相邻错误数(const QString& t) {
    const char16_t* p = 单元(t);
    const qsizetype n = t.size();
    int 错 = 0;
    for (qsizetype i = 0; i < n; ++i) {
        const char16_t 前 = i > 0 ? p[i - 1] : u' ';
        const char16_t 后 = i + 1 < n ? p[i + 1] : u' ';
        switch (p[i]) {
        case u'(':
            if (后禁字符集.contains(后)) ++错;
            break;
        case u')':
        case u'%':
        case u'‰':
            if (前禁字符集.contains(前)) ++错;
            break;
        case u'!':
            if (阶乘前禁字符集.contains(前)) ++错;
            break;
        case u'^':
        case u'/':
        case u'*':
        case u'\\':
            if (前禁字符集.contains(前)) ++错;
            if (后禁字符集.contains(后)) ++错;
            break;
        case u'+':
        case u'-':
            if (后禁字符集.contains(后)) ++错;
            break;
        case u'.':
            if (txt::isAsciiLetter(后)) ++错;
            break;
        default:
            break;  // Π Ε, digits and letters are never at fault
        }
    }
    return 错;
}

// At every non-bracket character of t: the part ahead may not close more
// than it opens, the part behind may not open more than it closes, and what
// is open ahead must be what closes behind. Gives the one message found
// first, or null.
const QString* 括号检查(const QString& t) {
    const char16_t* p = 单元(t);
    const qsizetype n = t.size();
    int 总开 = 0, 总闭 = 0;
    for (qsizetype i = 0; i < n; ++i) {
        if (p[i] == u'(') ++总开;
        else if (p[i] == u')') ++总闭;
    }
    if (总开 == 0 && 总闭 == 0) return nullptr;  // every count below is 0
    int 前开 = 0, 前闭 = 0;  // counts in t[0 .. i-1]
    for (qsizetype i = 0; i < n; ++i) {
        const char16_t c = p[i];
        if (c == u'(') {
            ++前开;
        } else if (c == u')') {
            ++前闭;
        } else {
            const int 后开 = 总开 - 前开;  // c is no bracket, so "behind" is the rest
            const int 后闭 = 总闭 - 前闭;
            if (前闭 > 前开 || 后开 > 后闭) return &括号顺序消息;
            if (前开 - 前闭 != 后闭 - 后开) return &括号配对消息;
        }
    }
    return nullptr;
}

// ---------------------------------------------------------------------------
// 算式数字规范.

// The length of the number that 向后取数字 reads at the start of q (m units),
// by its own rules, or -1 where it fails (the caller then lets it fail, so
// that it reports).
qsizetype 数字长度(const char16_t* q, qsizetype m) {
    int 点 = 0, 数字 = 0, 符号 = 0, e数 = 0;
    qsizetype 末 = 0;
    for (qsizetype k = 1; k <= m; ++k) {
        const char16_t c = q[k - 1];
        const bool 符 = c == u'+' || c == u'-';
        if (c == u' ' && 数字 == 0) {
            末 = k;
            continue;
        }
        if (符 && 数字 > 0) {
            末 = k - 1;
            break;
        }
        if (c == u'.') {
            ++点;
            末 = k;
            if (点 > 1) return -1;
        } else if (txt::isAsciiDigit(c)) {
            ++数字;
            末 = k;
        } else if (符) {
            ++符号;
            if (符号 > 1) return -1;
        } else if (c == u'E' || c == u'e') {
            ++e数;
            点 = 0;
            数字 = 0;
            符号 = 0;
        } else {
            末 = k - 1;
            break;
        }
    }
    if (数字 < 1 || 符号 >= 2 || e数 > 1) return -1;
    return 末;
}

// A plain number (digits with at most one point, at most 20 units) lies well
// inside the decimal's range and holds at most 20 digits, so with the decimal
// switch on Hvt数转数 keeps it as the decimal it reads, which reports and
// counts nothing, and whose text is the digits without leading zeros and
// without the fraction's trailing zeros, "0." ahead of a fraction alone, "0"
// for zero. That text is appended to `s` here; false when q[0, n) is no such
// number, and then nothing is appended.
constexpr qsizetype 平常数字最长 = 20;

bool 平常数字文本(const char16_t* q, qsizetype n, QString& s) {
    if (n > 平常数字最长 || !计算状态.高精度开关) return false;
    qsizetype 点 = -1;
    for (qsizetype i = 0; i < n; ++i) {
        if (q[i] == u'.') {
            if (点 >= 0) return false;
            点 = i;
        } else if (!txt::isAsciiDigit(q[i])) {
            return false;
        }
    }
    qsizetype 整止 = 点 >= 0 ? 点 : n;  // integer part q[整起, 整止)
    qsizetype 整起 = 0;
    qsizetype 小起 = 点 >= 0 ? 点 + 1 : n, 小止 = n;  // fraction q[小起, 小止)
    if (整止 == 0 && 小止 == 小起) return false;     // no digit at all
    while (整起 < 整止 && q[整起] == u'0') ++整起;
    while (小止 > 小起 && q[小止 - 1] == u'0') --小止;
    if (整起 == 整止 && 小起 == 小止) {
        s += u'0';
        return true;
    }
    if (整起 == 整止) s += u'0';
    else s.append(QStringView(q + 整起, 整止 - 整起));
    if (小止 > 小起) {
        s += u'.';
        s.append(QStringView(q + 小起, 小止 - 小起));
    }
    return true;
}

// ---------------------------------------------------------------------------
// 算式显示形式.
constexpr txt::CharSet 留空运算符(u"-+*/\\^=");
constexpr txt::CharSet 收拢前运算符(u"+-*/\\^");  // the first characters of 符号收拢表

constexpr 替换项 符号收拢表[] = {
    {u"+ - ", u"+ -"}, {u"- - ", u"- -"}, {u"* - ", u"* -"}, {u"/ - ", u"/ -"},
    {u"\\ - ", u"\\ -"}, {u"^ - ", u"^ -"},
};
static_assert(std::size(符号收拢表) == 6);

// Longest first, so that "ASINH" is not taken for "A" + "SINH".
constexpr 替换项 函数显示表[] = {
    {u"ASINH", u"Asinh"}, {u"ACOSH", u"Acosh"}, {u"ATANH", u"Atanh"}, {u"ACOTH", u"Acoth"},
    {u"SINH", u"Sinh"}, {u"COSH", u"Cosh"}, {u"TANH", u"Tanh"}, {u"COTH", u"Coth"},
    {u"ASIN", u"Asin"}, {u"ACOS", u"Acos"}, {u"ATAN", u"Atan"}, {u"ACOT", u"Acot"},
    {u"ASEC", u"Asec"}, {u"ACSC", u"Acsc"}, {u"SIGN", u"Sign"}, {u"RAND", u"Rand"},
    {u"SIN", u"Sin"}, {u"COS", u"Cos"}, {u"TAN", u"Tan"}, {u"COT", u"Cot"},
    {u"SEC", u"Sec"}, {u"CSC", u"Csc"}, {u"ABS", u"Abs"}, {u"INT", u"Int"},
    {u"SQR", u"Sqr"}, {u"LG", u"Lg"}, {u"LN", u"Ln"}, {u"IF", u"If "},
};
static_assert(std::size(函数显示表) == 28);

// Every pattern of 函数显示表 is two or more capitals, so a match lies inside
// one run of capitals; and every replacement puts only small letters and a
// blank where capitals stood, so it never joins two runs. Applying the
// table (each row to all occurrences, in order) to the whole text therefore
// gives what applying it to each run of capitals by itself gives.
constexpr bool 全是大写名(const 替换项 (&表)[28]) {
    for (const auto& e : 表) {
        if (e.原.size() < 2 || e.新.size() < e.原.size() || e.新[0] != e.原[0]) return false;
        for (char16_t c : e.原)
            if (c < u'A' || c > u'Z') return false;
        for (std::size_t i = 1; i < e.新.size(); ++i)
            if (e.新[i] >= u'A' && e.新[i] <= u'Z') return false;
    }
    return true;
}
static_assert(全是大写名(函数显示表));

// The rows of 函数显示表 applied in order to one run of capitals, appended
// to `out`.
void 名称显示(std::u16string_view 段, std::u16string& out) {
    if (段.size() < 2) {  // no row is that short
        out.append(段);
        return;
    }
    std::u16string 当前(段), 下一;
    for (const auto& e : 函数显示表) {
        std::size_t k = 当前.find(e.原);
        if (k == std::u16string::npos) continue;
        下一.clear();
        std::size_t 起 = 0;
        while (k != std::u16string::npos) {
            下一.append(当前, 起, k - 起);
            下一.append(e.新);
            起 = k + e.原.size();
            k = 当前.find(e.原, 起);
        }
        下一.append(当前, 起, std::u16string::npos);
        当前.swap(下一);
    }
    out.append(当前);
}

// The closing rows, in this order, each to all occurrences:
// 指数收拢: "E + " → "E+", "E - " → "E-";
// 函数括号: "c (" → "c(" for each last letter c d g h n r s t of a display
//   name, then 空函数: "c " → "c(0) " for the same letters;
// 收尾: "Π" → "π", "Ε" → "ε", ")(" → ")*(", "( - " → "(-", "( + " → "(".
// Within each group no pattern overlaps another, and no replacement makes
// or breaks a match of its own group, so each group is one walk; ")*("
// keeps its "(" for the two rows behind it.
constexpr txt::CharSet 名尾字母(u"cdghnrst");

// Each walk reads s[0, n) and writes to o, which has room for what it may
// write (at most three units for two read), and gives the count written.
bool 跟着(const char16_t* s, qsizetype n, qsizetype i, std::u16string_view w) {
    return n - i >= static_cast<qsizetype>(w.size()) &&
           std::u16string_view(s + i, w.size()) == w;
}

qsizetype 指数收拢(const char16_t* s, qsizetype n, char16_t* o) {
    char16_t* const o0 = o;
    for (qsizetype i = 0; i < n;) {
        if (s[i] == u'E' && (跟着(s, n, i + 1, u" + ") || 跟着(s, n, i + 1, u" - "))) {
            *o++ = u'E';
            *o++ = s[i + 2];
            i += 4;
        } else {
            *o++ = s[i++];
        }
    }
    return o - o0;
}

qsizetype 函数括号(const char16_t* s, qsizetype n, char16_t* o) {
    char16_t* const o0 = o;
    for (qsizetype i = 0; i < n;) {
        const char16_t c = s[i];
        *o++ = c;
        if (名尾字母.contains(c) && i + 1 < n && s[i + 1] == u' ') {
            if (i + 2 < n && s[i + 2] == u'(') {
                *o++ = u'(';
                i += 3;
            } else {
                *o++ = u'(';
                *o++ = u'0';
                *o++ = u')';
                *o++ = u' ';
                i += 2;
            }
        } else {
            ++i;
        }
    }
    return o - o0;
}

qsizetype 收尾(const char16_t* s, qsizetype n, char16_t* o) {
    char16_t* const o0 = o;
    for (qsizetype i = 0; i < n;) {
        const char16_t c = s[i];
        if (c == u'Π') {
            *o++ = u'π';
        } else if (c == u'Ε') {
            *o++ = u'ε';
        } else if (c == u')' && i + 1 < n && s[i + 1] == u'(') {
            *o++ = u')';
            *o++ = u'*';
        } else if (c == u'(' && 跟着(s, n, i + 1, u" - ")) {
            *o++ = u'(';
            *o++ = u'-';
            i += 4;
            continue;
        } else if (c == u'(' && 跟着(s, n, i + 1, u" + ")) {
            *o++ = u'(';
            i += 4;
            continue;
        } else {
            *o++ = c;
        }
        ++i;
    }
    return o - o0;
}

}  // namespace

// ===========================================================================

QString 修复相邻运算符(const QString& 文本) {
    QString t = 去空格(文本);
    if (t.isEmpty() || t == 算式错误) return 零;
    运算对集 对(t);
    依运算对表替换(t, 对, 重复符号对);
    依运算对表替换(t, 对, 重复符号对);
    依运算对表替换(t, 对, 运算符修复对);
    return t;
}

QString 算式数字规范(const QString& 文本) {
    QString t = txt::trim(文本);
    if (t.isEmpty()) return 零;
    t = txt::upper(t);
    const char16_t* p = 单元(t);
    const qsizetype n = t.size();
    QString s;
    s.reserve(n + 16);
    qsizetype i = 0;
    while (i < n) {
        qsizetype j = i;
        while (j < n && p[j] != u'.' && !txt::isAsciiDigit(p[j])) ++j;
        if (j > i) s.append(QStringView(p + i, j - i));
        i = j;
        if (i >= n) break;
        const qsizetype 长 = 数字长度(p + i, n - i);
        if (长 < 0) {
            // A malformed number: the reader reports it and gives the rest.
            const QString x = 向后取数字(t, static_cast<int>(i + 1));
            s += txt::trim(Hvt数转数(数值(x)).文本());
            i += std::max<qsizetype>(1, x.size());
            continue;
        }
        if (!平常数字文本(p + i, 长, s))
            s += txt::trim(Hvt数转数(数值(QString(reinterpret_cast<const QChar*>(p + i), 长))).文本());
        i += std::max<qsizetype>(1, 长);  // a reader that read nothing still moves on
    }
    return s;
}

QString 检查运算符相邻(const QString& 文本) {
    const QString t = 去空格(文本);
    if (t.isEmpty() || t == 算式错误) return 零;
    try {
        const int 错 = 相邻错误数(t);
        if (错 > 0) {
            // Counted by the number of faults, recorded once; the first-error
            // field is set only when this brings the count to exactly 1.
            计算状态.错误数 += 错;
            计算状态.错误提示 = 相邻错误消息;
            计算状态.错误记录 += 相邻错误消息 + QStringLiteral("\r\n");
            if (计算状态.错误数 == 1) 计算状态.首个错误 = 相邻错误消息;
            交互().告知(相邻错误消息);
        }
        if (const QString* 括号消息 = 括号检查(t)) {
            报告错误(*括号消息);
            交互().告知(*括号消息);
        }
    } catch (const std::exception&) {
        报告错误(QStringLiteral("  [判断运算符错误；判断括号成对性]过程中，") + QStringLiteral("\r\n") +
                 QStringLiteral("出现超出范围错误，我无法计算！"));
    }
    return t;
}

QString 算式显示形式(const QString& 文本) {
    const QString t = txt::upper(去空格(文本));
    if (t.isEmpty()) return 零;
    const char16_t* p = 单元(t);
    const qsizetype n = t.size();

    // A blank on each side of an operator; two operators side by side share
    // one (what "  " → " " leaves, since the text holds no other blank).
    // On the way, note which of the closing walks can find anything: the
    // exponent rows need "E" right ahead of "+" or "-", the closing rows a
    // Π, an Ε, ")(", "(+" or "(-" (the walks between make none of these).
    QString s(3 * n, Qt::Uninitialized);
    qsizetype m = 0;
    bool 有收拢 = false;  // an operator of 符号收拢表 right ahead of a "-"
    bool 有指数 = false, 有收尾 = false;
    {
        char16_t* o = reinterpret_cast<char16_t*>(s.data());
        for (qsizetype i = 0; i < n; ++i) {
            const char16_t c = p[i];
            const char16_t 前 = i > 0 ? p[i - 1] : u' ';
            if (c == u'Π' || c == u'Ε' || (c == u'(' && 前 == u')')) 有收尾 = true;
            if (!留空运算符.contains(c)) {
                o[m++] = c;
                continue;
            }
            if (m == 0 || o[m - 1] != u' ') o[m++] = u' ';
            o[m++] = c;
            o[m++] = u' ';
            if (c == u'-' || c == u'+') {
                if (前 == u'E') 有指数 = true;
                if (前 == u'(') 有收尾 = true;
                if (c == u'-' && 收拢前运算符.contains(前)) 有收拢 = true;
            }
        }
        s.truncate(m);
    }
    // A pattern "+ - " and its kin stand in s exactly where an operator
    // stands right ahead of "-" in t; rare, so done row by row.
    if (有收拢) {
        for (const auto& e : 符号收拢表)
            s.replace(reinterpret_cast<const QChar*>(e.原.data()), static_cast<qsizetype>(e.原.size()),
                      reinterpret_cast<const QChar*>(e.新.data()), static_cast<qsizetype>(e.新.size()),
                      Qt::CaseSensitive);
        m = s.size();
    }

    // Names to display case, run of capitals by run. The bracket rows need
    // a small c d g h n r s t right ahead of a blank; only a name makes
    // small letters.
    std::u16string a;
    a.reserve(static_cast<std::size_t>(2 * m));
    bool 有括号 = false;
    {
        const char16_t* q = 单元(s);
        for (qsizetype i = 0; i < m;) {
            qsizetype j = i;
            while (j < m && (q[j] < u'A' || q[j] > u'Z')) ++j;
            a.append(q + i, static_cast<std::size_t>(j - i));
            i = j;
            while (j < m && q[j] >= u'A' && q[j] <= u'Z') ++j;
            if (j == i) continue;
            const std::size_t 起 = a.size();
            名称显示(std::u16string_view(q + i, static_cast<std::size_t>(j - i)), a);
            for (std::size_t x = 起; x < a.size(); ++x) {
                const char16_t 后 = x + 1 < a.size() ? a[x + 1] : (j < m ? q[j] : u'\0');
                if (名尾字母.contains(a[x]) && 后 == u' ') 有括号 = true;
            }
            i = j;
        }
    }
    // The closing walks, each into the other buffer, where they can match.
    qsizetype k = static_cast<qsizetype>(a.size());
    std::u16string b;
    if (有指数) {
        b.resize(static_cast<std::size_t>(k + 4));
        k = 指数收拢(a.data(), k, b.data());
        a.swap(b);
    }
    if (有括号) {
        b.resize(static_cast<std::size_t>(3 * k + 4));
        k = 函数括号(a.data(), k, b.data());
        a.swap(b);
    }
    if (有收尾) {
        b.resize(static_cast<std::size_t>(2 * k + 4));
        k = 收尾(a.data(), k, b.data());
        a.swap(b);
    }
    b = std::move(a);

    qsizetype 起 = 0, 止 = k;
    while (起 < 止 && b[static_cast<std::size_t>(起)] == u' ') ++起;
    while (止 > 起 && b[static_cast<std::size_t>(止 - 1)] == u' ') --止;
    if (起 == 止) return 零;
    return QString(reinterpret_cast<const QChar*>(b.data() + 起), 止 - 起);
}

QString 表达式规整(const QString& 文本) {
    清除计算状态();
    QString t = 算式结构规整(文本);
    t = 算式数字规范(t);
    t = 修复相邻运算符(t);
    t = 检查运算符相邻(t);
    t = 算式显示形式(t);
    if (计算状态.错误数 < 1) return t;
    return t + QStringLiteral("请修改");
}
