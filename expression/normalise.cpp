// Input normalisation: the character table, the structure pass and the
// number cleaners. See normalise.h for the contracts.
#include "expression/normalise.h"

#include "expression/evaluator.h"
#include "expression/functions.h"
#include "expression/validate.h"
#include "numeric/decimal.h"
#include "numeric/guarded.h"
#include "numeric/text.h"
#include "numeric/interaction.h"
#include "numeric/state.h"

#include <QStringList>
#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct 替换项 {
    std::u16string_view 原;
    std::u16string_view 新;
};

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

inline QString 视图文本(std::u16string_view v) {
    return QString(reinterpret_cast<const QChar*>(v.data()), static_cast<qsizetype>(v.size()));
}

template <std::size_t N>
void 依表替换(QString& t, const 替换项 (&表)[N]) {
    for (const auto& e : 表) {
        const QString 原 = 视图文本(e.原);
        if (t.contains(原)) t.replace(原, 视图文本(e.新), Qt::CaseSensitive);
    }
}

// Full-width letters to Latin, capital first, letter by letter.
void 全角字母转半角(QString& t) {
    for (QChar& c : t) {
        const char16_t u = c.unicode();
        if ((u >= u'Ａ' && u <= u'Ｚ') || (u >= u'ａ' && u <= u'ｚ')) c = QChar(char16_t(u - 全角偏移));
    }
}

using txt::去空格;

// ---------------------------------------------------------------------------
// 算式字符规整 in one walk. Of the rows above, every one-character source
// maps to one character, and no row ever makes a character that a later
// one-character row takes; so each character meets the first row that names
// it and no other. The longer sources are of four kinds, checked below:
//   * dead: "求余", "乘以", "除以" hold a character that an earlier row has
//     taken away, so they never match;
//   * words: "等于", "小于", "大于" and "PAI", "Pai", "pai", made of
//     characters no row makes or takes, overlapping nothing, so they match
//     where they stand in the text without blanks (full-width letters are
//     made Latin only later, so "ＰＡＩ" stays letters);
//   * comparisons: "=>", ">=", "=<", "<=" are read on what rows 10 to 12
//     made; no later row makes or takes = < > ≥ ≤, so they are applied at
//     the end, in their order, when both "=" and "<" or ">" stand in the text.
struct 单字项 {
    char16_t 原;
    char16_t 新;
};

template <std::size_t N>
constexpr bool 前面单字有(const 替换项 (&表)[N], std::size_t 止, char16_t c) {
    for (std::size_t i = 0; i < 止; ++i)
        if (表[i].原.size() == 1 && 表[i].原[0] == c) return true;
    return false;
}

constexpr bool 是字符表词(std::u16string_view w) {
    return w == u"等于" || w == u"小于" || w == u"大于" || w == u"PAI" || w == u"Pai" || w == u"pai";
}
constexpr bool 是比较对(std::u16string_view w) { return w == u"=>" || w == u">=" || w == u"=<" || w == u"<="; }

constexpr bool 是字母(char16_t c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || (c >= u'Ａ' && c <= u'Ｚ') ||
           (c >= u'ａ' && c <= u'ｚ');
}
constexpr bool 是比较符(char16_t c) { return c == u'=' || c == u'<' || c == u'>' || c == u'≥' || c == u'≤'; }

// The shape the walk relies on, row by row.
constexpr bool 字符表形状成立() {
    constexpr std::size_t 前 = std::size(字符表前段);
    // Row i of both tables in order (the full-width letters stand between).
    auto 行 = [](std::size_t i) -> const 替换项& { return i < 前 ? 字符表前段[i] : 数字表[i - 前]; };
    constexpr std::size_t 全 = 前 + std::size(数字表);
    std::size_t 末比较 = 0;
    for (std::size_t i = 0; i < 全; ++i)
        if (是比较对(行(i).原)) 末比较 = i;
    for (std::size_t i = 0; i < 全; ++i) {
        const auto& e = 行(i);
        if (e.新.size() != 1) return false;
        // What a row makes, no later one-character row takes.
        for (std::size_t j = i + 1; j < 全; ++j)
            if (行(j).原.size() == 1 && 行(j).原[0] == e.新[0]) return false;
        // Behind the comparisons, no row makes or takes their characters.
        if (i > 末比较 && (是比较符(e.新[0]) || (e.原.size() == 1 && 是比较符(e.原[0])))) return false;
        if (e.原.size() == 1) {
            if (是字母(e.原[0])) return false;  // letters are only in the words
            continue;
        }
        if (i >= 前) return false;
        if (是比较对(e.原)) continue;
        if (是字符表词(e.原)) {
            for (char16_t c : e.原)
                for (std::size_t j = 0; j < 全; ++j)
                    if (行(j).新[0] == c || (行(j).原.size() == 1 && 行(j).原[0] == c)) return false;
            continue;
        }
        bool 死 = false;
        for (char16_t c : e.原) 死 = 死 || 前面单字有(字符表前段, i, c);
        if (!死) return false;
    }
    return true;
}
static_assert(字符表形状成立());

constexpr std::size_t 单字数() {
    std::size_t n = 0;
    for (std::size_t i = 0; i < std::size(字符表前段); ++i)
        if (字符表前段[i].原.size() == 1 && !前面单字有(字符表前段, i, 字符表前段[i].原[0])) ++n;
    return n + std::size(数字表);
}

// The one-character rows of both tables, first row first, sorted by source.
constexpr auto 单字表 = [] {
    std::array<单字项, 单字数()> r{};
    std::size_t k = 0;
    for (std::size_t i = 0; i < std::size(字符表前段); ++i) {
        const auto& e = 字符表前段[i];
        if (e.原.size() == 1 && !前面单字有(字符表前段, i, e.原[0])) r[k++] = {e.原[0], e.新[0]};
    }
    for (const auto& e : 数字表) r[k++] = {e.原[0], e.新[0]};
    std::sort(r.begin(), r.end(), [](const 单字项& a, const 单字项& b) { return a.原 < b.原; });
    return r;
}();

constexpr bool 单字表无重复() {
    for (std::size_t i = 1; i < 单字表.size(); ++i)
        if (单字表[i - 1].原 == 单字表[i].原) return false;  // a digit row repeating an earlier source
    return true;
}
static_assert(单字表无重复());

// The same for ASCII sources, as a direct table.
constexpr auto ASCII映射 = [] {
    std::array<char16_t, 128> r{};
    for (std::size_t c = 0; c < 128; ++c) r[c] = char16_t(c);
    for (const auto& e : 单字表)
        if (e.原 < 128) r[e.原] = e.新;
    return r;
}();

inline char16_t 单字映射(char16_t c) {
    if (c < 128) return ASCII映射[c];
    if ((c >= u'Ａ' && c <= u'Ｚ') || (c >= u'ａ' && c <= u'ｚ')) return char16_t(c - 全角偏移);
    const auto it = std::lower_bound(单字表.begin(), 单字表.end(), c,
                                     [](const 单字项& e, char16_t x) { return e.原 < x; });
    return (it != 单字表.end() && it->原 == c) ? it->新 : c;
}

constexpr 替换项 比较表[] = {{u"=>", u"≥"}, {u">=", u"≥"}, {u"=<", u"≤"}, {u"<=", u"≤"}};

// ---------------------------------------------------------------------------
// 算式结构规整's name check: w + ";" stands in 名称表文本 exactly when w, a
// run of letters, is the run of letters that ends right ahead of some ";"
// there, or a tail of it. Those tails are packed six bits a letter.
constexpr int 名键最长 = 10;

inline std::uint64_t 名键(const char16_t* w, qsizetype n) {
    std::uint64_t k = 0;
    for (qsizetype i = 0; i < n; ++i) {
        const char16_t c = w[i];
        k = (k << 6) | static_cast<std::uint64_t>(c <= u'Z' ? c - u'A' + 1 : c - u'a' + 27);
    }
    return k;
}

bool 名称已知(const char16_t* w, qsizetype n) {
    if (n > 名键最长) return 名称表中有(QString(reinterpret_cast<const QChar*>(w), n));
    static const std::vector<std::uint64_t> 表 = [] {
        std::vector<std::uint64_t> r;
        const char16_t* t = reinterpret_cast<const char16_t*>(名称表文本.utf16());
        const qsizetype m = 名称表文本.size();
        for (qsizetype i = 0; i < m; ++i) {
            if (t[i] != u';') continue;
            for (qsizetype j = i - 1; j >= 0 && i - j <= 名键最长 && txt::isAsciiLetter(t[j]); --j)
                r.push_back(名键(t + j, i - j));
        }
        std::sort(r.begin(), r.end());
        return r;
    }();
    return std::binary_search(表.begin(), 表.end(), 名键(w, n));
}

// ---------------------------------------------------------------------------
// 算式结构规整's character classes.

// What an expression may hold at all; anything else vanishes silently.
constexpr txt::CharSet 算式字符集(
    u"-0.1234567Ee89()ΠΕπε!%‰^*/\\+-ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
// Besides Latin letters: what may end, and what may begin, an expression.
constexpr txt::CharSet 结尾字符集(u"0123456789)!%‰ΠΕπε");
constexpr txt::CharSet 开头字符集(u"0123456789-.(ΠΕπε");
// A point stands only behind one of these and ahead of a digit.
constexpr txt::CharSet 点前字符集(u" 0123456789()^*/\\+-");

// Names are checked against the evaluator's name table (名称表中有 in
// functions.h): a plain text search for "name;", as loose as it looks.

// Allowed neighbours of a name; anything else gets a "*" between.
constexpr txt::CharSet E前字符集(u" 0123456789 ^*/\\+-(");   // 2E3 stays an exponent
constexpr txt::CharSet 名前字符集(u" ^*/\\+-(");
constexpr txt::CharSet E后字符集(u" 0123456789 ^*/\\+-)");
constexpr txt::CharSet 函数后字符集(u" ^*/\\+-!%‰(.0123456789");  // a function takes a number or bracket
constexpr txt::CharSet 变量后字符集(u" ^*/\\+-!%‰)");

// Closers and openers for the stars between them.
constexpr txt::CharSet 闭合字符集(u"!)%‰ΠΕ");
constexpr txt::CharSet 闭合后字符集(u"0123456789.(ΠΕ");
constexpr txt::CharSet 开启前字符集(u"0123456789%‰!)ΠΕ");
constexpr txt::CharSet 开启字符集(u"(ΠΕ");

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
    const QString t = 去空格(文本);
    if (t.isEmpty()) return QString();
    const char16_t* p = reinterpret_cast<const char16_t*>(t.utf16());
    const qsizetype n = t.size();
    QString r(n, Qt::Uninitialized);
    char16_t* o = reinterpret_cast<char16_t*>(r.data());
    qsizetype k = 0;
    bool 有等 = false, 有大小 = false;
    for (qsizetype i = 0; i < n;) {
        const char16_t c = p[i];
        char16_t m;
        if ((c == u'P' || c == u'p') && n - i >= 3 &&
            (std::u16string_view(p + i, 3) == u"PAI" || std::u16string_view(p + i, 3) == u"Pai" ||
             std::u16string_view(p + i, 3) == u"pai")) {
            m = u'Π';
            i += 3;
        } else if ((c == u'等' || c == u'小' || c == u'大') && i + 1 < n && p[i + 1] == u'于') {
            m = c == u'等' ? u'=' : c == u'小' ? u'<' : u'>';
            i += 2;
        } else {
            m = 单字映射(c);
            ++i;
        }
        if (m == u'=') 有等 = true;
        else if (m == u'<' || m == u'>') 有大小 = true;
        o[k++] = m;
    }
    r.truncate(k);
    if (有等 && 有大小)
        for (const auto& e : 比较表)
            r.replace(视图文本(e.原), 视图文本(e.新), Qt::CaseSensitive);
    return r;
}


namespace {

// Steps 1 and 2 of 算式结构规整, upper-casing and the character filter, in
// one walk into `out`. False, with `out` undefined, for a text holding a
// character whose upper case this walk does not know (see txt::upperKeeps);
// the caller then takes the general road.
bool 大写过滤(const QString& 文本, std::u16string& out) {
    const char16_t* p = reinterpret_cast<const char16_t*>(文本.utf16());
    const qsizetype n = 文本.size();
    out.resize(static_cast<std::size_t>(n));
    char16_t* o = out.data();
    qsizetype k = 0;
    for (qsizetype i = 0; i < n; ++i) {
        char16_t c = p[i];
        if (c < 128) {
            if (c >= u'a' && c <= u'z') c = char16_t(c - (u'a' - u'A'));
        } else if (c == u'π') {
            c = u'Π';
        } else if (c == u'ε') {
            c = u'Ε';
        } else if (c != u'Π' && c != u'Ε' && c != u'‰') {
            // Its upper case is itself, which the filter drops; a surrogate's
            // upper case is never a character the filter keeps.
            if (txt::upperKeeps(c) || (c >= 0xD800 && c <= 0xDFFF)) continue;
            return false;
        }
        if (算式字符集.contains(c)) o[k++] = c;
    }
    out.resize(static_cast<std::size_t>(k));
    return true;
}

}  // namespace

QString 算式结构规整(const QString& 文本) {
    // 1, 2. Trim and upper-case; character filter. (Blanks never pass the
    //    filter, so the trim changes nothing.)
    std::u16string a;
    if (!大写过滤(文本, a)) {
        const QString t = txt::trim(文本).toUpper();
        a.clear();
        for (QChar c : t)
            if (算式字符集.contains(c)) a += c.unicode();
    }
    if (a.empty()) return 零;

    // 3. Cut the tail behind the last character that can end an expression.
    std::size_t 止 = a.size();
    while (止 > 0 && !(txt::isAsciiLetter(a[止 - 1]) || 结尾字符集.contains(a[止 - 1]))) --止;
    if (止 == 0) return 零;
    // 4. Cut the head ahead of the first character that can begin one.
    std::size_t 起 = 0;
    while (起 < 止 && !(txt::isAsciiLetter(a[起]) || 开头字符集.contains(a[起]))) ++起;
    if (起 >= 止) return 零;

    // 5. Operator pairs.
    const QString t = 修复相邻运算符(QString(reinterpret_cast<const QChar*>(a.data() + 起),
                                            static_cast<qsizetype>(止 - 起)));
    if (t.isEmpty()) return 零;
    const char16_t* p = reinterpret_cast<const char16_t*>(t.utf16());
    const qsizetype n = t.size();

    // 6. Points: one stays only between a digit-side character and a digit.
    //    Ahead of the first and behind the last character stands a blank.
    a.resize(static_cast<std::size_t>(n));
    qsizetype m = 0;
    for (qsizetype i = 0; i < n; ++i) {
        const char16_t c = p[i];
        if (c == u'.') {
            const char16_t 前 = i > 0 ? p[i - 1] : u' ';
            const char16_t 后 = i + 1 < n ? p[i + 1] : u' ';
            if (!(点前字符集.contains(前) && txt::isAsciiDigit(后))) continue;
        }
        a[static_cast<std::size_t>(m++)] = c;
    }
    if (m == 0) return 零;
    const char16_t* q = a.data();

    // 7, 8. Names: each run of letters is checked against the name table
    //    (an unknown one is reported and kept), and gets a star ahead of it
    //    unless what stands ahead may precede it, and one behind it unless
    //    what stands behind may follow it. The ends of the text count as
    //    blanks. Stars only ever go next to a run, so the neighbours of a run
    //    are the same before and after the stars ahead are in.
    std::u16string b(static_cast<std::size_t>(3 * m), u'\0');
    char16_t* o = b.data();
    for (qsizetype i = 0; i < m;) {
        if (!txt::isAsciiLetter(q[i])) {
            *o++ = q[i++];
            continue;
        }
        qsizetype j = i;
        while (j < m && txt::isAsciiLetter(q[j])) ++j;
        const qsizetype 长 = j - i;
        const bool 是E = 长 == 1 && q[i] == u'E';
        if (!名称已知(q + i, 长)) {
            报告无法识读(QString(reinterpret_cast<const QChar*>(q + i), 长));
        } else {
            const char16_t 前 = i > 0 ? q[i - 1] : u' ';
            if (!(是E ? E前字符集 : 名前字符集).contains(前)) *o++ = u'*';
        }
        o = std::copy(q + i, q + j, o);
        const char16_t 后 = j < m ? q[j] : u' ';
        const txt::CharSet& 后集 = 是E ? E后字符集 : (长 > 1 ? 函数后字符集 : 变量后字符集);
        if (!后集.contains(后)) *o++ = u'*';
        i = j;
    }
    const qsizetype 名后长 = o - b.data();

    // 9, 10. Stars behind closers (3!2, )2, Π2, Π() and ahead of openers
    //    (2(, 2Π, )Π, !(). A star ahead of an opener is judged by what stood
    //    ahead of it after the first kind were in. This leaves no ")(".
    QString r(3 * 名后长, Qt::Uninitialized);
    char16_t* w = reinterpret_cast<char16_t*>(r.data());
    qsizetype k = 0;
    char16_t 前 = u' ';
    for (qsizetype i = 0; i < 名后长; ++i) {
        const char16_t c = b[static_cast<std::size_t>(i)];
        if (开启前字符集.contains(前) && 开启字符集.contains(c)) w[k++] = u'*';
        w[k++] = c;
        前 = c;
        if (闭合字符集.contains(c) && i + 1 < 名后长 && 闭合后字符集.contains(b[static_cast<std::size_t>(i + 1)])) {
            w[k++] = u'*';
            前 = u'*';
        }
    }
    r.truncate(k);
    return r;
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
