// Text helpers over UTF-16 code units with 1-based positions, the model the
// whole system uses: comparisons are by code unit and case sensitive, a
// position is 1 for the first unit and 0 for "not found". Write index
// arithmetic once, here, not at every call site. None of these reports;
// out-of-range arguments are clamped the way the callers expect (an empty
// result, or 0 for "not found").
#pragma once

#include <QString>
#include <QStringView>

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

// A plain short number: an optional "-" (only when 可带负号), an integer
// part "0" or 1..14 digits without a leading zero, and at most a fraction
// of 1..14 digits that does not end in 0. Such a text is held exactly by
// the 96-bit decimal and by its nearest double to 15 digits, and the
// decimal prints it back digit for digit; the number readers use that to
// skip their general road.
inline bool isShortPlainNumber(const QString& x, bool 可带负号 = false) {
    const qsizetype n = x.size();
    const QChar* p = x.constData();
    qsizetype i = 0;
    if (可带负号 && n > 0 && p[0] == u'-') ++i;
    const qsizetype 起 = i;
    while (i < n && isAsciiDigit(p[i])) ++i;
    const qsizetype 整数位 = i - 起;
    if (整数位 == 0 || 整数位 > 14 || (整数位 > 1 && p[起] == u'0')) return false;
    if (i == n) return true;
    if (p[i] != u'.') return false;
    ++i;
    const qsizetype 小数起 = i;
    while (i < n && isAsciiDigit(p[i])) ++i;
    const qsizetype 小数位 = i - 小数起;
    return i == n && 小数位 >= 1 && 小数位 <= 14 && p[n - 1] != u'0';
}

}  // namespace txt
