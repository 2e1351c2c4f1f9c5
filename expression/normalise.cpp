// Input normalisation: the character table, the structure pass and the
// number cleaners. See normalise.h for the contracts.
#include "expression/normalise.h"

#include "expression/evaluator.h"
#include "expression/functions.h"
#include "expression/replace_table.h"
#include "expression/validate.h"
#include "numeric/decimal.h"
#include "numeric/guarded.h"
#include "numeric/text.h"
#include "shell/interaction.h"
#include "shell/state.h"

#include <array>
#include <string_view>

namespace {

using 替换项 = 替换表::项;
using 替换表::依表替换;

// ---------------------------------------------------------------------------
// The character table of 算式字符规整, rows 1..23 before the full-width
// letters and rows 25..34 after them. Each entry replaces all occurrences,
// in this order; later entries see the output of earlier ones. The order
// is part of the behaviour users know, traps included:
//   * "乘" ahead of "乘以", "除" ahead of "除以", "余" ahead of "求余": the
//     two-character words never match, and the leftover "以"/"求" is
//     dropped later by the character filter of 算式结构规整;
//   * "＝" becomes "=" (row 10) before ">=" "<=" are looked for (13, 14),
//     so "＞＝" ends as "≥";
//   * "PAI" is matched before full-width letters are made Latin, so
//     "ＰＡＩ" stays letters;
//   * "、" is a point, "±" "负" "_" are minus, "：" "｜" are division.
constexpr 替换项 字符表前段[] = {
    // 1..5: ! % ; , ^
    {u"！", u"!"}, {u"﹗", u"!"},
    {u"％", u"%"}, {u"﹪", u"%"},
    {u"；", u";"}, {u"﹔", u";"},
    {u"，", u","}, {u"﹐", u","},
    {u"＾", u"^"},
    // 6: points (U+FE52, U+3002, U+FF0E, U+00B7, 点)
    {u"﹒", u"."}, {u"。", u"."}, {u"．", u"."}, {u"·", u"."}, {u"点", u"."},
    // 7: backslash
    {u"＼", u"\\"}, {u"﹨", u"\\"},
    // 8: the enumeration comma reads as a point
    {u"、", u"."},
    // 9: remainder
    {u"余", u"\\"}, {u"求余", u"\\"},
    // 10..12: = < >
    {u"﹦", u"="}, {u"＝", u"="}, {u"≈", u"="}, {u"等于", u"="},
    {u"＜", u"<"}, {u"〈", u"<"}, {u"﹤", u"<"}, {u"小于", u"<"},
    {u"＞", u">"}, {u"〉", u">"}, {u"﹥", u">"}, {u"大于", u">"},
    // 13, 14: single-character comparison signs read by script conditions
    {u"≧", u"≥"}, {u"=>", u"≥"}, {u">=", u"≥"},
    {u"≦", u"≤"}, {u"=<", u"≤"}, {u"<=", u"≤"},
    // 15: plus (U+FF0B, U+254B, U+FE62)
    {u"＋", u"+"}, {u"╋", u"+"}, {u"﹢", u"+"}, {u"正", u"+"}, {u"加", u"+"},
    // 16: minus (负 减 _ U+FE63 U+2010 U+FF3F U+FF0D U+2015 U+00B1)
    {u"负", u"-"}, {u"减", u"-"}, {u"_", u"-"}, {u"﹣", u"-"}, {u"‐", u"-"},
    {u"＿", u"-"}, {u"－", u"-"}, {u"―", u"-"}, {u"±", u"-"},
    // 17: times (U+FF0A, U+00D7, U+FE61, 乘, 乘以, Greek chi)
    {u"＊", u"*"}, {u"×", u"*"}, {u"﹡", u"*"}, {u"乘", u"*"}, {u"乘以", u"*"},
    {u"χ", u"*"},
    // 18: division; a ratio 3：4 is a quotient (U+FF5C, |, U+FE55, U+FE30,
    // U+FF1A, U+00F7, U+FF0F, 除, 除以)
    {u"｜", u"/"}, {u"|", u"/"}, {u"﹕", u"/"}, {u"︰", u"/"}, {u"：", u"/"},
    {u"÷", u"/"}, {u"／", u"/"}, {u"除", u"/"}, {u"除以", u"/"},
    // 19: opening brackets
    {u"[", u"("}, {u"{", u"("}, {u"［", u"("}, {u"｛", u"("}, {u"﹙", u"("},
    {u"﹛", u"("}, {u"﹝", u"("}, {u"（", u"("}, {u"〔", u"("},
    // 20, 21: the constants as Greek capitals (U+03A0, U+0395)
    {u"π", u"Π"}, {u"∏", u"Π"}, {u"派", u"Π"}, {u"PAI", u"Π"}, {u"Pai", u"Π"},
    {u"pai", u"Π"},
    {u"ε", u"Ε"},
    // 22, 23: closing brackets (《 opens)
    {u"《", u"("},
    {u"》", u")"}, {u"]", u")"}, {u"}", u")"}, {u"］", u")"}, {u"｝", u")"},
    {u"﹚", u")"}, {u"﹜", u")"}, {u"﹞", u")"}, {u"）", u")"}, {u"〕", u")"},
};
static_assert(std::size(字符表前段) == 93);

// Rows 25..34: full-width digits and Chinese numerals, digit by digit
// (so "二十" gives "2十"); 另 is the common stand-in for 零.
constexpr 替换项 数字表[] = {
    {u"０", u"0"}, {u"另", u"0"}, {u"零", u"0"},
    {u"１", u"1"}, {u"一", u"1"}, {u"壹", u"1"},
    {u"２", u"2"}, {u"二", u"2"}, {u"贰", u"2"},
    {u"３", u"3"}, {u"三", u"3"}, {u"叁", u"3"},
    {u"４", u"4"}, {u"四", u"4"}, {u"肆", u"4"},
    {u"５", u"5"}, {u"五", u"5"}, {u"伍", u"5"},
    {u"６", u"6"}, {u"六", u"6"}, {u"陆", u"6"},
    {u"７", u"7"}, {u"七", u"7"}, {u"柒", u"7"},
    {u"８", u"8"}, {u"八", u"8"}, {u"捌", u"8"},
    {u"９", u"9"}, {u"九", u"9"}, {u"玖", u"9"},
};
static_assert(std::size(数字表) == 30);

// Full-width Latin letters U+FF21..U+FF3A and U+FF41..U+FF5A sit at a fixed
// distance from ASCII.
constexpr char16_t 全角偏移 = u'Ａ' - u'A';
static_assert(全角偏移 == u'ａ' - u'a' && u'Ｚ' - u'Ａ' == 25);



// Full-width letters to Latin, capital first, letter by letter.
void 全角字母转半角(QString& t) {
    for (QChar& c : t) {
        const char16_t u = c.unicode();
        if ((u >= u'Ａ' && u <= u'Ｚ') || (u >= u'ａ' && u <= u'ｚ')) c = QChar(char16_t(u - 全角偏移));
    }
}

using 替换表::去空格;

// ---------------------------------------------------------------------------
// 算式结构规整's character classes.

// What an expression may hold at all; anything else vanishes silently.
const 替换表::字符类 算式字符集(u"-0.1234567Ee89()ΠΕπε!%‰^*/\\+-ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
// Besides Latin letters: what may end, and what may begin, an expression.
const 替换表::字符类 结尾字符集(u"0123456789)!%‰ΠΕπε");
const 替换表::字符类 开头字符集(u"0123456789-.(ΠΕπε");
// A point stands only behind one of these and ahead of a digit.
const 替换表::字符类 点前字符集(u" 0123456789()^*/\\+-");

// Names are checked against the evaluator's name table (名称表中有 in
// functions.h): a plain text search for "name;", as loose as it looks.

// Allowed neighbours of a name; anything else gets a "*" between.
const 替换表::字符类 E前字符集(u" 0123456789 ^*/\\+-(");   // 2E3 stays an exponent
const 替换表::字符类 名前字符集(u" ^*/\\+-(");
const 替换表::字符类 E后字符集(u" 0123456789 ^*/\\+-)");
const 替换表::字符类 函数后字符集(u" ^*/\\+-!%‰(.0123456789");  // a function takes a number or bracket
const 替换表::字符类 变量后字符集(u" ^*/\\+-!%‰)");

// Closers and openers for the stars between them.
const 替换表::字符类 闭合字符集(u"!)%‰ΠΕ");
const 替换表::字符类 闭合后字符集(u"0123456789.(ΠΕ");
const 替换表::字符类 开启前字符集(u"0123456789%‰!)ΠΕ");
const 替换表::字符类 开启字符集(u"(ΠΕ");

const QString 零 = QStringLiteral("0");

void 报告无法识读(const QString& w) {
    const QString 消息 = QStringLiteral("输入的公式表达式中：") + w + QStringLiteral("\r\n\r\n") +
                         QStringLiteral("存在无法识读的函数或变量，请修改！");
    报告错误(消息);
    交互().告知(消息);
}

// ---------------------------------------------------------------------------
// Number cleaners.

// The mapping shared by 规整数字文本, 规整高精度数字文本 and 规整数字列表:
// points, signs, percent, E and full-width digits.
constexpr 替换项 数字文本表[] = {
    {u"。", u"."}, {u"．", u"."}, {u"﹒", u"."}, {u"·", u"."},
    {u"＋", u"+"}, {u"﹢", u"+"},
    {u"﹣", u"-"}, {u"‐", u"-"}, {u"―", u"-"}, {u"－", u"-"}, {u"±", u"-"},
    {u"％", u"%"}, {u"﹪", u"%"},
    {u"Ｅ", u"E"}, {u"ｅ", u"E"},
    {u"０", u"0"}, {u"１", u"1"}, {u"２", u"2"}, {u"３", u"3"}, {u"４", u"4"},
    {u"５", u"5"}, {u"６", u"6"}, {u"７", u"7"}, {u"８", u"8"}, {u"９", u"9"},
};
static_assert(std::size(数字文本表) == 25);

// The longest leading part of `s` that reads as a number: blanks, optional
// sign, digits with at most one point (at least one digit), optional
// exponent E/e with optional sign and at least one digit. 0 when nothing
// reads, and 0 when the exponent overflows a double. Never reports.
double 宽松读数(const QString& s) {
    const qsizetype n = s.size();
    qsizetype i = 0;
    while (i < n && s[i] == u' ') ++i;
    const qsizetype 起 = i;
    if (i < n && (s[i] == u'+' || s[i] == u'-')) ++i;
    int 位数 = 0;
    bool 有点 = false;
    while (i < n) {
        if (txt::isAsciiDigit(s[i])) ++位数;
        else if (s[i] == u'.' && !有点) 有点 = true;
        else break;
        ++i;
    }
    if (位数 == 0) return 0.0;
    if (i < n && (s[i] == u'E' || s[i] == u'e')) {
        qsizetype j = i + 1;
        if (j < n && (s[j] == u'+' || s[j] == u'-')) ++j;
        const qsizetype 指数起 = j;
        while (j < n && txt::isAsciiDigit(s[j])) ++j;
        if (j > 指数起) i = j;
    }
    double d = 0.0;
    if (!文本转双精度(QStringView(s).mid(起, i - 起), d)) return 0.0;
    return d;
}

QString 双精度数文本(double d) {
    if (d == 0.0) return 零;  // never "-0"
    return txt::trim(双精度文本(d));
}

QString 数字文本预处理(const QString& 文本) {
    QString t = 去空格(文本);
    if (t.isEmpty()) return t;
    t.remove(u'﹐').remove(u'，').remove(u',');
    依表替换(t, 数字文本表);
    return t;
}

// 规整数字's character classes.
char16_t 数字框字符(char16_t c) {
    switch (c) {
    case u'０': case u'另': case u'零': return u'0';
    case u'１': case u'一': case u'壹': return u'1';
    case u'２': case u'二': case u'贰': return u'2';
    case u'３': case u'三': case u'叁': return u'3';
    case u'４': case u'四': case u'肆': return u'4';
    case u'５': case u'五': case u'伍': return u'5';
    case u'６': case u'六': case u'陆': return u'6';
    case u'７': case u'七': case u'柒': return u'7';
    case u'８': case u'八': case u'捌': return u'8';
    case u'９': case u'九': case u'玖': return u'9';
    case u'。': case u'点': case u'．': case u'.': case u'·': case u'、': return u'.';
    case u'正': case u'加': case u'＋': case u'╋': case u'┼': case u'+': return u'+';
    case u'负': case u'减': case u'_': case u'＿': case u'－': case u'±': case u'―':
    case u'-': case u'—': case u'─': case u'━': return u'-';
    default:
        if ((c >= u'0' && c <= u'9') || c == u'E') return c;
        return 0;  // dropped
    }
}

// Free-text replacements of 规整文本字符, in order.
constexpr 替换项 文本字符表[] = {
    {u"\u3000", u" "},
    {u"～", u"~"}, {u"｀", u"`"}, {u"＃", u"#"}, {u"＠", u"@"}, {u"＄", u"$"}, {u"＆", u"&"},
    {u"‘", u"'"}, {u"＇", u"'"}, {u"’", u"'"},
    {u"？", u"?"},
    {u"！", u"!"}, {u"﹗", u"!"},
    {u"％", u"%"}, {u"﹪", u"%"},
    {u"，", u","}, {u"﹐", u","},
    {u"；", u";"}, {u"﹔", u";"},
    {u"＾", u"^"},
    {u"﹒", u"."}, {u"。", u"."}, {u"．", u"."}, {u"·", u"."},
    {u"﹦", u"="}, {u"＝", u"="},
    {u"＜", u"<"}, {u"〈", u"<"}, {u"﹤", u"<"},
    {u"＞", u">"}, {u"〉", u">"}, {u"﹥", u">"},
    {u"≧", u"≥"}, {u"≦", u"≤"},
    {u"﹢", u"+"}, {u"＋", u"+"}, {u"╋", u"+"},
    {u"＿", u"_"},
    {u"﹣", u"-"}, {u"‐", u"-"}, {u"―", u"-"}, {u"－", u"-"},
    {u"﹡", u"*"}, {u"＊", u"*"}, {u"×", u"*"},
    {u"｜", u"|"},
    {u"﹕", u":"}, {u"︰", u":"}, {u"：", u":"},
    {u"÷", u"/"}, {u"／", u"/"},
    {u"＼", u"\\"}, {u"﹨", u"\\"},
    {u"π", u"Π"}, {u"∏", u"Π"},
    {u"（", u"("}, {u"﹙", u"("},
    {u"［", u"["}, {u"﹝", u"["}, {u"〔", u"["},
    {u"｛", u"{"}, {u"﹛", u"{"},
    {u"）", u")"}, {u"﹚", u")"},
    {u"］", u"]"}, {u"﹞", u"]"}, {u"〕", u"]"},
    {u"｝", u"}"}, {u"﹜", u"}"},
};
static_assert(std::size(文本字符表) == 69);

// Last of all: the yen sign (both the Latin-1 and the full-width one, as
// Chinese input methods give the latter) and the curly and full-width
// double quotes become the ASCII double quote.
constexpr 替换项 引号表[] = {
    {u"¥", u"\""}, {u"￥", u"\""}, {u"“", u"\""}, {u"＂", u"\""}, {u"”", u"\""},
};
static_assert(std::size(引号表) == 5);

}  // namespace

// ===========================================================================

QString 算式字符规整(const QString& 文本) {
    QString t = 去空格(文本);
    if (t.isEmpty()) return QString();
    依表替换(t, 字符表前段);
    全角字母转半角(t);
    依表替换(t, 数字表);
    return t;
}


namespace {
// Copies t, handing each run of ASCII letters (a name) to 名处理(s, name,
// 1-based position, length), which appends what stands for it; every other
// unit is copied as it is.
template <class F>
QString 逐名改写(const QString& t, F 名处理) {
    QString s;
    s.reserve(t.size() * 2);
    const int n = txt::len(t);
    int i = 1;
    while (i <= n) {
        if (!txt::isAsciiLetter(txt::at(t, i))) {
            // The run up to the next letter goes over in one piece.
            int e = i + 1;
            while (e <= n && !txt::isAsciiLetter(txt::at(t, e))) ++e;
            s += txt::mid(t, i, e - i);
            i = e;
            continue;
        }
        const QString w = 取字母串(t, i);
        const int 长 = std::max(1, txt::len(w));
        名处理(s, w, i, 长);
        i += 长;
    }
    return s;
}
}  // namespace

QString 算式结构规整(const QString& 文本) {
    // 1. Trim and upper-case.
    QString t = txt::trim(文本).toUpper();
    if (t.isEmpty()) return 零;

    // 2. Character filter.
    {
        QString f;
        f.reserve(t.size());
        for (QChar c : t)
            if (算式字符集.contains(c)) f += c;
        t = f;
    }
    if (t.isEmpty()) return 零;

    // 3. Cut the tail behind the last character that can end an expression.
    {
        qsizetype k = t.size() - 1;
        while (k >= 0 && !(txt::isAsciiLetter(t[k]) || 结尾字符集.contains(t[k]))) --k;
        if (k < 0) return 零;
        t.truncate(k + 1);
    }
    // 4. Cut the head ahead of the first character that can begin one.
    {
        qsizetype k = 0;
        while (k < t.size() && !(txt::isAsciiLetter(t[k]) || 开头字符集.contains(t[k]))) ++k;
        if (k >= t.size()) return 零;
        t.remove(0, k);
    }

    // 5. Operator pairs.
    t = 修复相邻运算符(t);
    if (t.isEmpty()) return 零;

    // 6. Points: one stays only between a digit-side character and a digit.
    {
        const QString p = u' ' + t + u' ';
        QString s;
        s.reserve(t.size());
        for (qsizetype i = 1; i + 1 < p.size(); ++i) {
            const QChar c = p[i];
            if (c == u'.' && !(点前字符集.contains(p[i - 1]) && txt::isAsciiDigit(p[i + 1]))) continue;
            s += c;
        }
        t = s;
    }
    if (t.isEmpty()) return 零;

    // 7. Names, and stars ahead of them. The start of the text counts as a
    //    blank neighbour.
    t = 逐名改写(t, [&](QString& s, const QString& w, int i, int) {
        if (!名称表中有(w)) {
            报告无法识读(w);
            s += w;
            return;
        }
        const QChar 前 = i > 1 ? txt::at(t, i - 1) : QChar(u' ');
        const 替换表::字符类& 集 = (w == u"E") ? E前字符集 : 名前字符集;
        if (!集.contains(前)) s += u'*';
        s += w;
    });

    // 8. Stars behind names. The end of the text counts as a blank.
    t = 逐名改写(t, [&](QString& s, const QString& w, int i, int 长) {
        const QChar 后 = i + 长 <= txt::len(t) ? txt::at(t, i + 长) : QChar(u' ');
        const 替换表::字符类& 集 = (w == u"E") ? E后字符集 : (长 > 1 ? 函数后字符集 : 变量后字符集);
        s += w;
        if (!集.contains(后)) s += u'*';
    });

    // 9. Stars behind closers: 3!2, )2, Π2, Π(.
    {
        QString p = u' ' + t + u' ';
        for (qsizetype i = 1; i + 1 < p.size(); ++i)
            if (闭合字符集.contains(p[i]) && 闭合后字符集.contains(p[i + 1])) p.insert(i + 1, u'*');
        // 10. Stars ahead of openers: 2(, 2Π, )Π, !(.
        for (qsizetype i = 1; i < p.size(); ++i)
            if (开启前字符集.contains(p[i - 1]) && 开启字符集.contains(p[i])) p.insert(i, u'*');
        t = p;
    }

    // 11. ")(" and the blanks.
    替换表::全部替换(t, u")(", u")*(");
    t = txt::trim(t);
    return t.isEmpty() ? 零 : t;
}

数值 规整数字(const 数值& x) {
    QString t = txt::trim(x.文本()).toUpper();
    if (t.isEmpty()) return 数值(Decimal96());

    // 2. Map and keep only what a number needs.
    {
        QString s;
        s.reserve(t.size());
        for (QChar c : t) {
            const char16_t m = 数字框字符(c.unicode());
            if (m != 0) s += QChar(m);
        }
        t = s;
    }
    // 3. A sign, point or E right ahead of an E goes.
    for (qsizetype i = 1; i < t.size();) {
        const QChar p = t[i - 1];
        if (t[i] == u'E' && (p == u'+' || p == u'-' || p == u'.' || p == u'E')) {
            t.remove(i - 1, 1);
            if (i > 1) --i;
        } else {
            ++i;
        }
    }
    // 4. Fold sign and point pairs, stepping back after each fold.
    for (qsizetype i = 0; i + 1 < t.size();) {
        const QChar a = t[i], b = t[i + 1];
        QChar 合;
        if (a == u'+' && b == u'+') 合 = u'+';
        else if (a == u'-' && b == u'-') 合 = u'+';
        else if (a == u'+' && b == u'-') 合 = u'-';
        else if (a == u'-' && b == u'+') 合 = u'-';
        else if (a == u'.' && b == u'.') 合 = u'.';
        if (合.isNull()) {
            ++i;
            continue;
        }
        t.replace(i, 2, 合);
        if (i > 0) --i;
    }
    // 5. A second point, a point behind E, or a second E ends the number.
    {
        bool 有点 = false, 有E = false;
        for (qsizetype i = 0; i < t.size(); ++i) {
            if (t[i] == u'.') {
                if (有点 || 有E) {
                    t.truncate(i);
                    break;
                }
                有点 = true;
            } else if (t[i] == u'E') {
                if (有E) {
                    t.truncate(i);
                    break;
                }
                有E = true;
            }
        }
    }
    return Hvt数转数(数值(t));
}

QString 规整数字文本(const QString& 文本) {
    const QString t = 数字文本预处理(文本);
    if (t.isEmpty()) return 零;
    return 双精度数文本(宽松读数(t));
}

QString 规整高精度数字文本(const QString& 文本) {
    const QString t = 数字文本预处理(文本);
    if (t.isEmpty()) return 零;
    return txt::trim(Hvt数转数(数值(t)).文本());
}

QString 规整数字列表(const QString& 文本) {
    QString t = 去空格(文本);
    if (t.isEmpty()) return QStringLiteral("0, ");
    t.replace(u'﹐', u',').replace(u'，', u',');
    依表替换(t, 数字文本表);
    if (!t.endsWith(u',')) t += u',';
    const QStringList 段 = t.split(u',');
    QString r;
    for (qsizetype i = 0; i + 1 < 段.size(); ++i) r += 双精度数文本(宽松读数(段[i])) + u',';
    r.replace(QStringLiteral(","), QStringLiteral(", "));
    return r;
}

QString 规整文本字符(const QString& 文本) {
    if (文本.isEmpty()) return QString();
    QString t = 文本;
    依表替换(t, 文本字符表);
    全角字母转半角(t);
    依表替换(t, 数字表);
    依表替换(t, 引号表);
    return t;
}
