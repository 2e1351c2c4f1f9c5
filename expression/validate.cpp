// Syntax validation: operator repair, number canonicalisation, the
// operator and bracket check, and the display form. See validate.h.
#include "expression/validate.h"

#include "expression/evaluator.h"
#include "expression/replace_table.h"
#include "numeric/guarded.h"
#include "numeric/text.h"
#include "shell/interaction.h"
#include "shell/state.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <string_view>

namespace {

using 替换项 = 替换表::项;
using 替换表::依表替换;

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

struct 运算对集 {
    bool 有[运算字符数][运算字符数] = {};

    explicit 运算对集(const QString& t) {
        const char16_t* p = reinterpret_cast<const char16_t*>(t.utf16());
        const qsizetype n = t.size();
        int 前 = n > 0 ? 运算序号(p[0]) : -1;
        for (qsizetype i = 1; i < n; ++i) {
            const int 后 = 运算序号(p[i]);
            if (前 >= 0 && 后 >= 0) 有[前][后] = true;
            前 = 后;
        }
    }
};

template <std::size_t N>
constexpr bool 全是运算对(const 替换项 (&表)[N]) {
    for (const auto& e : 表)
        if (e.原.size() != 2 || 运算序号(e.原[0]) < 0 || 运算序号(e.原[1]) < 0) return false;
    return true;
}

template <std::size_t N>
void 依运算对表替换(QString& t, const 替换项 (&表)[N]) {
    运算对集 对(t);
    for (const auto& e : 表) {
        if (!对.有[运算序号(e.原[0])][运算序号(e.原[1])]) continue;
        t.replace(reinterpret_cast<const QChar*>(e.原.data()), 2,
                  reinterpret_cast<const QChar*>(e.新.data()), static_cast<qsizetype>(e.新.size()),
                  Qt::CaseSensitive);
        对 = 运算对集(t);
    }
}

using 替换表::去空格;

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

// ---------------------------------------------------------------------------
// 检查运算符相邻's neighbour classes.
const 替换表::字符类 后禁字符集(u"/*^\\)!%‰");   // what may not follow an opener, sign or binary operator
const 替换表::字符类 前禁字符集(u"-+*/^\\(");    // what may not precede a closer, postfix or binary operator
const 替换表::字符类 阶乘前禁字符集(u"+!-*/^\\(");

const QString 相邻错误消息 = QStringLiteral(" 算式中存在多个运算符相临的错误，请修改算式！！！");
const QString 括号顺序消息 = QStringLiteral(" 算式中--括号顺序--错误,请修改。");
const QString 括号配对消息 = QStringLiteral(" 算式中--括号无法配对--错误,请修改。");

int 相邻错误数(const QString& p) {
    int 错 = 0;
    for (qsizetype i = 1; i + 1 < p.size(); ++i) {
        const QChar 前 = p[i - 1], c = p[i], 后 = p[i + 1];
        switch (c.unicode()) {
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

// At every non-bracket position of the padded text: the part ahead may not
// close more than it opens, the part behind may not open more than it
// closes, and what is open ahead must be what closes behind. Gives the one
// message found first, or an empty text.
QString 括号检查(const QString& p) {
    const qsizetype n = p.size();
    int 总开 = 0, 总闭 = 0;
    for (QChar c : p) {
        if (c == u'(') ++总开;
        else if (c == u')') ++总闭;
    }
    int 前开 = 0, 前闭 = 0;  // counts in p[0 .. i-1]
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = p[i];
        if (i >= 1 && i + 1 < n && c != u'(' && c != u')') {
            const int 后开 = 总开 - 前开;  // c is no bracket, so "behind" is the rest
            const int 后闭 = 总闭 - 前闭;
            if (前闭 > 前开 || 后开 > 后闭) return 括号顺序消息;
            if (前开 - 前闭 != 后闭 - 后开) return 括号配对消息;
        }
        if (c == u'(') ++前开;
        else if (c == u')') ++前闭;
    }
    return QString();
}

// ---------------------------------------------------------------------------
// 算式显示形式.
const 替换表::字符类 留空运算符(u"-+*/\\^=");

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

constexpr 替换项 指数收拢表[] = {{u"E + ", u"E+"}, {u"E - ", u"E-"}};
static_assert(std::size(指数收拢表) == 2);

// Every display name ends in one of c d g h n r s t.
constexpr 替换项 函数括号表[] = {
    {u"c (", u"c("}, {u"d (", u"d("}, {u"g (", u"g("}, {u"h (", u"h("},
    {u"n (", u"n("}, {u"r (", u"r("}, {u"s (", u"s("}, {u"t (", u"t("},
};
static_assert(std::size(函数括号表) == 8);

constexpr 替换项 空函数表[] = {
    {u"c ", u"c(0) "}, {u"d ", u"d(0) "}, {u"g ", u"g(0) "}, {u"h ", u"h(0) "},
    {u"n ", u"n(0) "}, {u"r ", u"r(0) "}, {u"s ", u"s(0) "}, {u"t ", u"t(0) "},
};
static_assert(std::size(空函数表) == 8);

constexpr 替换项 收尾表[] = {
    {u"Π", u"π"}, {u"Ε", u"ε"}, {u")(", u")*("}, {u"( - ", u"(-"}, {u"( + ", u"("},
};
static_assert(std::size(收尾表) == 5);

}  // namespace

// ===========================================================================

QString 修复相邻运算符(const QString& 文本) {
    QString t = 去空格(文本);
    if (t.isEmpty() || t == 算式错误) return 零;
    依运算对表替换(t, 重复符号表);
    依运算对表替换(t, 重复符号表);
    依运算对表替换(t, 运算符修复表);
    return t;
}

QString 算式数字规范(const QString& 文本) {
    QString t = txt::trim(文本);
    if (t.isEmpty()) return 零;
    t = t.toUpper();
    static const QString 数字起始 = QStringLiteral(".0123456789");
    QString s;
    s.reserve(t.size());
    const int n = txt::len(t);
    int i = 1;
    while (i <= n) {
        const QChar c = txt::at(t, i);
        if (!数字起始.contains(c)) {
            s += c;
            ++i;
            continue;
        }
        const QString x = 向后取数字(t, i);
        if (txt::isShortPlainNumber(x)) s += x;   // reads back as itself
        else s += txt::trim(Hvt数转数(数值(x)).文本());
        i += std::max(1, txt::len(x));  // a reader that read nothing still moves on
    }
    return s;
}

QString 检查运算符相邻(const QString& 文本) {
    const QString t = 去空格(文本);
    if (t.isEmpty() || t == 算式错误) return 零;
    try {
        const QString p = u' ' + t + u' ';
        const int 错 = 相邻错误数(p);
        if (错 > 0) {
            // Counted by the number of faults, recorded once; the first-error
            // field is set only when this brings the count to exactly 1.
            公共.错误数 += 错;
            公共.错误提示 = 相邻错误消息;
            公共.错误记录 += 相邻错误消息 + QStringLiteral("\r\n");
            if (公共.错误数 == 1) 公共.首个错误 = 相邻错误消息;
            交互().告知(相邻错误消息);
        }
        const QString 括号消息 = 括号检查(p);
        if (!括号消息.isEmpty()) {
            报告错误(括号消息);
            交互().告知(括号消息);
        }
    } catch (const std::exception&) {
        报告错误(QStringLiteral("  [判断运算符错误；判断括号成对性]过程中，") + QStringLiteral("\r\n") +
                 QStringLiteral("出现超出范围错误，我无法计算！"));
    }
    return t;
}

QString 算式显示形式(const QString& 文本) {
    QString t = 去空格(文本);
    if (t.isEmpty()) return 零;
    t = t.toUpper();
    QString s(t.size() * 3, Qt::Uninitialized);
    {
        QChar* d = s.data();
        qsizetype k = 0;
        for (QChar c : std::as_const(t)) {
            if (留空运算符.contains(c)) {
                d[k++] = u' ';
                d[k++] = c;
                d[k++] = u' ';
            } else {
                d[k++] = c;
            }
        }
        s.truncate(k);
    }
    替换表::全部替换(s, u"  ", u" ");
    依表替换(s, 符号收拢表);
    依表替换(s, 函数显示表);
    依表替换(s, 指数收拢表);
    依表替换(s, 函数括号表);
    依表替换(s, 空函数表);
    依表替换(s, 收尾表);
    s = txt::trim(s);
    return s.isEmpty() ? 零 : s;
}

QString 表达式规整(const QString& 文本) {
    清除计算状态();
    QString t = 算式结构规整(文本);
    t = 算式数字规范(t);
    t = 修复相邻运算符(t);
    t = 检查运算符相邻(t);
    t = 算式显示形式(t);
    if (公共.错误数 < 1) return t;
    return t + QStringLiteral("请修改");
}
