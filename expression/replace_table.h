// Ordered replacement tables over UTF-16 text, shared by the normaliser
// and the display form.
//
// A table is applied entry by entry, each entry replacing every occurrence
// (leftmost first, not overlapping) in the text as the earlier entries left
// it: the order is part of the behaviour. Most entries of a long table do
// not occur in a given text, so a set of the code units the text holds is
// kept beside it (a superset while replacing: what an entry brings in is
// added, what it takes away stays), and an entry with a unit outside the set
// is skipped without a scan.
#pragma once

#include <QString>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace 替换表 {

struct 项 {
    std::u16string_view 原;
    std::u16string_view 新;
};

// The code units of a text: a bit per ASCII unit, and up to 48 others in a
// small sorted list; past that every non-ASCII unit counts as present.
class 单元集 {
public:
    单元集() = default;
    explicit 单元集(const QString& t) { 加(视图(t)); }
    explicit 单元集(std::u16string_view s) { 加(s); }

    void 加(std::u16string_view s) {
        for (char16_t c : s) 加(c);
    }
    void 加(char16_t c) {
        if (c < 128) {
            位_[c >> 6] |= std::uint64_t{1} << (c & 63);
            return;
        }
        if (溢出_) return;
        auto* end = 其它_.data() + 数_;
        auto* at = std::lower_bound(其它_.data(), end, c);
        if (at != end && *at == c) return;
        if (数_ == 其它_.size()) {
            溢出_ = true;
            return;
        }
        std::copy_backward(at, end, end + 1);
        *at = c;
        ++数_;
    }
    bool 有(char16_t c) const {
        if (c < 128) return ((位_[c >> 6] >> (c & 63)) & 1) != 0;
        if (溢出_) return true;
        return std::binary_search(其它_.data(), 其它_.data() + 数_, c);
    }
    // False only when some unit of s is surely absent.
    bool 或有(std::u16string_view s) const {
        for (char16_t c : s)
            if (!有(c)) return false;
        return true;
    }

    static std::u16string_view 视图(const QString& t) {
        return {reinterpret_cast<const char16_t*>(t.utf16()), static_cast<std::size_t>(t.size())};
    }

private:
    std::uint64_t 位_[2] = {0, 0};
    std::array<char16_t, 48> 其它_{};
    std::size_t 数_ = 0;
    bool 溢出_ = false;
};

// A fixed class of characters ("what may end an expression"), asked one
// character at a time.
class 字符类 {
public:
    explicit 字符类(std::u16string_view s) : 集_(s) {}
    bool contains(QChar c) const { return 集_.有(c.unicode()); }

private:
    单元集 集_;
};

// Every occurrence of 原 in t (leftmost first, not overlapping, the search
// going on behind each replaced one) replaced by 新; false when there is
// none. The patterns are a few units long and the texts short, where a
// plain search beats the general matcher.
inline bool 全部替换(QString& t, std::u16string_view 原, std::u16string_view 新) {
    const std::u16string_view v = 单元集::视图(t);
    std::size_t at = v.find(原);
    if (at == std::u16string_view::npos) return false;
    QString r;
    r.reserve(t.size() + static_cast<qsizetype>(新.size()));
    std::size_t from = 0;
    do {
        r.append(reinterpret_cast<const QChar*>(v.data() + from), static_cast<qsizetype>(at - from));
        r.append(reinterpret_cast<const QChar*>(新.data()), static_cast<qsizetype>(新.size()));
        from = at + 原.size();
        at = v.find(原, from);
    } while (at != std::u16string_view::npos);
    r.append(reinterpret_cast<const QChar*>(v.data() + from), static_cast<qsizetype>(v.size() - from));
    t = std::move(r);
    return true;
}

// s without its blanks (U+0020 and the ideographic U+3000); s itself, shared,
// when it has none.
inline QString 去空格(const QString& s) {
    const QChar* p = s.constData();
    const qsizetype n = s.size();
    qsizetype i = 0;
    while (i < n && p[i] != u' ' && p[i] != u'\u3000') ++i;
    if (i == n) return s;
    QString t(n, Qt::Uninitialized);
    QChar* d = t.data();
    qsizetype k = 0;
    for (qsizetype j = 0; j < n; ++j)
        if (p[j] != u' ' && p[j] != u'\u3000') d[k++] = p[j];
    t.truncate(k);
    return t;
}

// Applies the table to t in order (see above).
template <std::size_t N>
void 依表替换(QString& t, const 项 (&表)[N]) {
    单元集 有(t);
    for (const auto& e : 表) {
        if (!有.或有(e.原)) continue;
        if (全部替换(t, e.原, e.新)) 有.加(e.新);
    }
}

}  // namespace 替换表
