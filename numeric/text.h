// Text helpers over UTF-16 code units with 1-based positions, the model the
// whole system uses: comparisons are by code unit and case sensitive, a
// position is 1 for the first unit and 0 for "not found". Write index
// arithmetic once, here, not at every call site. None of these reports;
// out-of-range arguments are clamped the way the callers expect (an empty
// result, or 0 for "not found").
#pragma once

#include <QString>
#include <QStringView>
#include <cstdint>
#include <string_view>

namespace txt {

// Blanks are U+0020 only: tabs and other white space are content.
inline QString trim(const QString& s) {
    qsizetype b = 0, e = s.size();
    while (b < e && s[b] == u' ') ++b;
    while (e > b && s[e - 1] == u' ') --e;
    return s.mid(b, e - b);
}
inline QString ltrim(const QString& s) {
    qsizetype b = 0;
    while (b < s.size() && s[b] == u' ') ++b;
    return s.mid(b);
}
inline QString rtrim(const QString& s) {
    qsizetype e = s.size();
    while (e > 0 && s[e - 1] == u' ') --e;
    return s.left(e);
}

// Length in code units.
inline int len(const QString& s) { return static_cast<int>(s.size()); }

// The `n` units from 1-based `start` (all the rest when n < 0). start < 1
// is taken as 1; past the end gives "".
inline QString mid(const QString& s, int start, int n = -1) {
    if (start < 1) start = 1;
    if (start > s.size()) return QString();
    return n < 0 ? s.mid(start - 1) : s.mid(start - 1, n);
}
inline QString left(const QString& s, int n) { return n <= 0 ? QString() : s.left(n); }
inline QString right(const QString& s, int n) { return n <= 0 ? QString() : s.right(n); }

// The unit at 1-based `pos`, or U+0000 when out of range.
inline QChar at(const QString& s, int pos) {
    return (pos >= 1 && pos <= s.size()) ? s[pos - 1] : QChar();
}

// 1-based place of `what` in `s` at or after `start`, 0 if none.
// An empty `what` is found at `start` (when start <= len + 1).
inline int instr(const QString& s, const QString& what, int start = 1) {
    if (start < 1) start = 1;
    if (start > s.size() + 1) return 0;
    const qsizetype i = s.indexOf(what, start - 1, Qt::CaseSensitive);
    return i < 0 ? 0 : static_cast<int>(i) + 1;
}
inline int instr(const QString& s, QChar c, int start = 1) {
    if (start < 1) start = 1;
    if (start > s.size()) return 0;
    const qsizetype i = s.indexOf(c, start - 1, Qt::CaseSensitive);
    return i < 0 ? 0 : static_cast<int>(i) + 1;
}

// 1-based place of the last `what` in `s`, 0 if none.
inline int instrRev(const QString& s, const QString& what) {
    const qsizetype i = s.lastIndexOf(what, -1, Qt::CaseSensitive);
    return i < 0 ? 0 : static_cast<int>(i) + 1;
}
inline int instrRev(const QString& s, QChar c) {
    const qsizetype i = s.lastIndexOf(c, -1, Qt::CaseSensitive);
    return i < 0 ? 0 : static_cast<int>(i) + 1;
}

// Replace `n` units at 1-based `start` by `with`.
inline QString splice(const QString& s, int start, int n, const QString& with) {
    return left(s, start - 1) + with + mid(s, start + n);
}

inline bool isAsciiDigit(QChar c) { return c.unicode() >= u'0' && c.unicode() <= u'9'; }
inline bool isAsciiLetter(QChar c) {
    const char16_t u = c.unicode();
    return (u >= u'A' && u <= u'Z') || (u >= u'a' && u <= u'z');
}
constexpr bool isAsciiLetter(char16_t u) { return (u >= u'A' && u <= u'Z') || (u >= u'a' && u <= u'z'); }
constexpr bool isAsciiDigit(char16_t u) { return u >= u'0' && u <= u'9'; }

// A fixed set of code units for per-character membership tests in the hot
// text passes: a bit per ASCII unit, and up to eight other units (Π, ‰, …)
// compared one by one. Built at compile time only, from the characters it
// holds (a ninth other unit does not compile).
class CharSet {
public:
    consteval CharSet(std::u16string_view s) {
        for (char16_t c : s) {
            if (c < 128) bits_[c >> 6] |= std::uint64_t{1} << (c & 63);
            else if (!contains(c)) others_[n_++] = c;
        }
    }
    constexpr bool contains(char16_t c) const {
        if (c < 128) return (bits_[c >> 6] >> (c & 63)) & 1;
        for (int i = 0; i < n_; ++i)
            if (others_[i] == c) return true;
        return false;
    }
    bool contains(QChar c) const { return contains(c.unicode()); }

private:
    std::uint64_t bits_[2] = {0, 0};
    char16_t others_[8] = {};
    int n_ = 0;
};

// True for a non-ASCII code unit that QString::toUpper gives back as it is:
// Π and Ε, and blocks with no cased letter in them (general punctuation,
// ‰, arrows and mathematical signs, box drawing and shapes, CJK symbols,
// kana and ideographs, Hangul, private use, presentation and full-width
// forms other than the full-width small letters). Surrogates are not
// among them. False only means "ask QString::toUpper".
constexpr bool upperKeeps(char16_t c) {
    return c == u'Π' || c == u'Ε' || (c >= 0x2010 && c <= 0x20FF) || (c >= 0x2190 && c <= 0x24CF) ||
           (c >= 0x2500 && c <= 0x2BFF) || (c >= 0x2E80 && c <= 0xA63F) || (c >= 0xAC00 && c <= 0xD7FF) ||
           (c >= 0xE000 && c <= 0xFAFF) || (c >= 0xFE00 && c <= 0xFF40) || c >= 0xFF5B;
}

// s.toUpper(), the same for every text; texts of ASCII and upperKeeps units
// are done here without the general case tables (and shared when nothing
// changes).
inline QString upper(const QString& s) {
    const char16_t* p = reinterpret_cast<const char16_t*>(s.utf16());
    const qsizetype n = s.size();
    qsizetype 首 = -1;  // first a-z
    for (qsizetype i = 0; i < n; ++i) {
        const char16_t c = p[i];
        if (c < 128) {
            if (首 < 0 && c >= u'a' && c <= u'z') 首 = i;
        } else if (!upperKeeps(c)) {
            return s.toUpper();
        }
    }
    if (首 < 0) return s;
    QString r = s;
    char16_t* q = reinterpret_cast<char16_t*>(r.data());
    for (qsizetype i = 首; i < n; ++i)
        if (q[i] >= u'a' && q[i] <= u'z') q[i] = char16_t(q[i] - (u'a' - u'A'));
    return r;
}

// s with its blanks (U+0020 and the ideographic U+3000) removed; s itself,
// shared, when it has none.
inline QString 去空格(const QString& s) {
    if (!s.contains(u' ') && !s.contains(QChar(0x3000))) return s;
    const char16_t* p = reinterpret_cast<const char16_t*>(s.utf16());
    const qsizetype n = s.size();
    QString t(n, Qt::Uninitialized);
    char16_t* o = reinterpret_cast<char16_t*>(t.data());
    qsizetype k = 0;
    for (qsizetype j = 0; j < n; ++j)
        if (p[j] != u' ' && p[j] != u'\u3000') o[k++] = p[j];
    t.truncate(k);
    return t;
}

}  // namespace txt
