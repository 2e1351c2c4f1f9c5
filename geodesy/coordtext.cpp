// Coordinate text: cleaners, the list parser, the strict splitter and the
// result row. Positions and comparisons are by UTF-16 code unit.
#include "geodesy/coordtext.h"
#include "geodesy/projection.h"

#include "numeric/circular.h"
#include "numeric/decimal.h"
#include "numeric/guarded.h"
#include "numeric/rounding.h"
#include "numeric/text.h"
#include "numeric/interaction.h"
#include "geodesy/state.h"
#include "numeric/state.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

constexpr char16_t CR = u'\r';

bool 是数字符(QChar c) {
    const char16_t u = c.unicode();
    return (u >= u'0' && u <= u'9') || u == u'.' || u == u'+' || u == u'-';
}

// Pads with blanks at the end to a display width.
QString 补宽(const QString& s, int 宽) {
    const int w = 显示宽度(s);
    return w >= 宽 ? s : s + QString(宽 - w, u' ');
}

// Line ends to CR: CR LF and a lone LF both end a line.
QString 行尾归一(const QString& s) {
    if (!s.contains(u'\n')) return s;
    QString r(s.size(), Qt::Uninitialized);
    const QChar* p = s.constData();
    QChar* q = r.data();
    qsizetype n = 0;
    for (qsizetype i = 0; i < s.size(); ++i) {
        if (p[i] == u'\n') {
            if (i == 0 || p[i - 1] != u'\r') q[n++] = QChar(CR);  // the LF of CR LF goes
        } else {
            q[n++] = p[i];
        }
    }
    r.truncate(n);
    return r;
}

}  // namespace

QString 字符规范(const QString& 文本) {
    if (QString::compare(文本, QStringLiteral("\r")) <= 0) return QString();
    QString s = 文本;
    s.replace(QChar(u'\u3000'), QChar(u' '));
    for (int n = 5; n >= 2; --n) s.replace(QString(n, u' '), QStringLiteral(" "));
    static const std::array<std::pair<char16_t, char16_t>, 11> 表{{
        {u'―', u'-'}, {u'＋', u'+'}, {u'·', u'.'}, {u'．', u'.'}, {u'，', u','}, {u'＃', u'#'},
        {u'＠', u'@'}, {u'＊', u'*'}, {u'＆', u'&'}, {u'／', u'/'}, {u'－', u'-'},
    }};
    static_assert(表.size() == 11);
    for (const auto& [从, 到] : 表) s.replace(QChar(从), QChar(到));
    // Full-width digits from a Chinese input method read as the digits.
    for (qsizetype i = 0; i < s.size(); ++i) {
        const char16_t u = s[i].unicode();
        if (u >= u'０' && u <= u'９') s[i] = QChar(char16_t(u'0' + (u - u'０')));
    }
    return s;
}

QString 提取数字(const QString& 文本) {
    const QString s = txt::trim(文本.toUpper());
    if (QString::compare(s, QStringLiteral(" ")) < 0) return QString();
    int 数字 = 0;
    qsizetype 止 = s.size();
    for (qsizetype i = 0; i < s.size(); ++i) {
        const char16_t u = s[i].unicode();
        if (u >= u'0' && u <= u'9') { ++数字; continue; }
        if (u == u'.' || u == u'+' || u == u'-' || u == u'E') continue;
        if (数字 == 0) return QString();
        止 = i;
        break;
    }
    double d = 0;
    if (!文本转双精度(QStringView(s).left(止), d)) return QString();
    return 双精度文本(d);
}

QString 坐标文本解析(const QString& 文本, int& 个数, CoordinateRow& 组, bool 角度,
                   QString& 顺序, QString& 带号文本) {
    const int 上限 = 个数 > 0 ? 个数 : std::numeric_limits<int>::max();
    个数 = 0;
    组.序号组 = QStringList{QString()};
    组.X组.assign(1, 0.0);
    组.Y组.assign(1, 0.0);
    组.高程组.assign(1, 0.0);

    // 1. Zone text 1..239, else none.
    int 带号 = 0;
    {
        double z = 0;
        if (文本转双精度(txt::trim(带号文本), z) && std::isfinite(z)) {
            z = std::trunc(z);
            if (z >= 0 && z <= 239) 带号 = static_cast<int>(z);
        }
        带号文本 = 带号 == 0 ? QString() : QStringLiteral("%1").arg(带号, 2, 10, QChar(u'0'));
    }
    // 2. Order word.
    {
        const QString o = txt::trim(顺序).toUpper();
        顺序 = o == QStringLiteral("XYH") ? o : QStringLiteral("YXH");
    }
    const bool XY在前 = 顺序 == QStringLiteral("XYH");
    // 3., 4. TAB reads as ","; the separator is one printable character.
    QString s = 文本;
    s.replace(QChar(u'\t'), QChar(u','));
    QString 分隔 = 坐标状态.列表分隔符;
    if (分隔.size() != 1 || 分隔[0].unicode() < u' ') 分隔 = QStringLiteral(",");
    const QChar sep = 分隔[0];
    // 5. Lines end in CR; blank lines fold away.
    s = 行尾归一(txt::trim(s) + QChar(CR));
    s = 字符规范(s);
    for (int k = 0; k < 3; ++k) s.replace(QStringLiteral("\r\r"), QStringLiteral("\r"));
    if (QString::compare(s, QStringLiteral("\r")) <= 0) return QStringLiteral("没有发现坐标数据！");

    QString 整理;
    整理.reserve(s.size() + s.size() / 4);
    QString 星行;
    bool 有星行 = false;
    double X最小 = std::numeric_limits<double>::infinity(), X最大 = -X最小;
    double Y最小 = X最小, Y最大 = -X最小;

    qsizetype 行首 = 0;
    int 分隔数 = 0, 数字数 = 0;
    for (qsizetype i = 0; i < s.size(); ++i) {
        const QChar c = s[i];
        if (c != QChar(CR)) {
            if (c == sep) ++分隔数;
            else if (是数字符(c)) ++数字数;
            continue;
        }
        const QString 行 = txt::trim(s.mid(行首, i - 行首));
        const bool 数据行 = i + 1 > 3 && 分隔数 > 0 && 数字数 > 1 && 数字数 >= 分隔数;
        行首 = i + 1;
        分隔数 = 0;
        数字数 = 0;
        if (!数据行) {
            if (!有星行 && 行.startsWith(u'*')) { 星行 = 行; 有星行 = true; }
            continue;
        }
        // 7., 8. Fields; a name must begin with a letter or a Chinese character.
        const bool 有名 = !是数字符(行[0]);
        std::array<QString, 4> 字段;
        {
            int k = 0;
            qsizetype 起 = 0;
            for (qsizetype j = 0; j <= 行.size() && k < 4; ++j) {
                if (j == 行.size() || 行[j] == sep) {
                    字段[static_cast<size_t>(k++)] = txt::trim(行.mid(起, j - 起));
                    起 = j + 1;
                }
            }
        }
        QString 名, a, b, h;
        if (有名) { 名 = 字段[0]; a = 字段[1]; b = 字段[2]; h = 字段[3]; }
        else {
            名 = QStringLiteral("D%1").arg(个数 + 1, 3, 10, QChar(u'0'));
            a = 字段[0]; b = 字段[1]; h = 字段[2];
        }
        if (角度) {
            // Angle text (117°45′14.1234″) to packed degrees; a field that is
            // already a packed number stays as it is.
            auto 读角 = [](const QString& f) {
                if (f.contains(u'°') || f.contains(u'′') || f.contains(u'″'))
                    return 双精度文本(文本转角度(f));
                return f;
            };
            a = 读角(a);
            b = 读角(b);
        }
        a = 提取数字(a);
        b = 提取数字(b);
        h = 提取数字(h);
        if (a.isEmpty() || b.isEmpty()) continue;  // 9.
        ++个数;                                      // 10.
        if (个数 > 上限) { 个数 = 上限; break; }
        double va = 0, vb = 0, vh = 0;
        文本转双精度(a, va);
        文本转双精度(b, vb);
        if (!h.isEmpty()) 文本转双精度(h, vh);
        double X = XY在前 ? va : vb;
        double Y = XY在前 ? vb : va;
        if (!角度 && 带号 != 0 && Y >= 0 && Y <= 999999.999) Y = 带号 * 1000000.0 + Y;  // 13.
        组.序号组.append(名);
        组.X组.push_back(X);
        组.Y组.push_back(Y);
        组.高程组.push_back(vh);
        X最小 = std::min(X最小, X); X最大 = std::max(X最大, X);
        Y最小 = std::min(Y最小, Y); Y最大 = std::max(Y最大, Y);
        // 15. The cleaned line, written back from the stored numbers.
        auto 值文本 = [&](double v) { return 角度 ? 角度转文本(v, 坐标状态.格式2位角度) : 格式整理值(v); };
        const double 先 = XY在前 ? X : Y, 后 = XY在前 ? Y : X;
        整理 += 补宽(txt::trim(名), 4);
        整理 += u' '; 整理 += sep; 整理 += u' ';
        整理 += 值文本(先);
        整理 += u' '; 整理 += sep; 整理 += u' ';
        整理 += 值文本(后);
        if (vh != 0) {
            整理 += u' '; 整理 += sep; 整理 += u' ';
            整理 += 格式整理高程(vh);
        }
        整理 += QStringLiteral("\r\n");
        if (个数 == 上限) break;
    }
    if (有星行) 整理.prepend(星行 + QStringLiteral("\r\n"));
    if (个数 == 0) return QStringLiteral("该字符串中没有发现坐标数据!!!");
    auto 前置 = [&](const char16_t* 话) { 整理.prepend(QString::fromUtf16(话) + QStringLiteral("\r\n")); };
    if (角度) {
        if (X最大 > 90) 前置(u"┈┈ 有纬度数据大于90度错误！！！");
        if (X最小 < -90) 前置(u"┈┈ 有纬度数据小于-90度错误！！！");
        if (Y最大 > 180) 前置(u"┈┈ 有经度数据大于180度错误！！！");
        if (Y最小 < -180) 前置(u"┈┈ 有经度数据小于-180度错误！！！");
    } else {
        if (Y最小 < 1000) 前置(u"┈┈ 有公里网数据 Y 小于1000错误！！！");
        if (X最大 > 20002200) 前置(u"┈┈ 有公里网数据 X 偏大异常错误！！！");
        if (Y最大 > 239999000) 前置(u"┈┈ 有公里网数据 Y 偏大异常错误！！！");
    }
    return 整理;
}

QString 序号坐标拆分(const QString& 文本, bool 带序号) {
    QString t = txt::trim(文本);
    if (t.size() < 2) return t;
    t = 行尾归一(t);
    t = QStringLiteral(" ") + t + QStringLiteral(" ");
    if (!t.endsWith(QChar(CR))) t += QChar(CR);
    // 3. Look-alikes to ASCII; lines counted.
    int 行数 = 0;
    for (qsizetype i = 0; i < t.size(); ++i) {
        const char16_t u = t[i].unicode();
        switch (u) {
        case u'＋': case u'╋': case u'┼': t[i] = u'+'; break;
        case u'_': case u'＿': case u'－': case u'±': case u'―': case u'—': case u'─': case u'━':
            t[i] = u'-'; break;
        case u'\u3000': t[i] = u' '; break;
        case u'．': case u'。': case u'、': t[i] = u'.'; break;
        case u'，': case u';': case u'；': case u'／': case u'/': t[i] = u','; break;
        case u'\r': ++行数; break;
        default: break;
        }
    }
    // 4. Filter: everything else goes, with a word for each character.
    QString 净;
    净.reserve(t.size());
    for (const QChar c : t) {
        const char16_t u = c.unicode();
        const bool 留 = (u >= u'A' && u <= u'z') || (u >= u'0' && u <= u'9') || u == u',' ||
                        u == u'.' || u == u'-' || u == u'+' || u == u' ' || u <= u'\r';
        if (留) 净 += c;
        else 交互().告知(QStringLiteral("数据中存在无用的字符或汉字！已被自动清除，计算继续进行。"));
    }
    // 5. Arrays sized to the lines, 1-based.
    坐标模块状态& st = 坐标状态;
    for (拆分数组* a : {&st.拆分序号, &st.拆分值1, &st.拆分值2, &st.拆分值3, &st.拆分值4}) {
        a->元素 = QStringList(行数 + 1, QString());
        a->个数 = 0;
    }
    st.拆分最宽字段 = 0;
    拆分数组* 按位[6] = {nullptr, nullptr, nullptr, nullptr, nullptr, nullptr};
    if (带序号) {
        按位[1] = &st.拆分序号; 按位[2] = &st.拆分值1; 按位[3] = &st.拆分值2;
        按位[4] = &st.拆分值3; 按位[5] = &st.拆分值4;
    } else {
        按位[1] = &st.拆分值1; 按位[2] = &st.拆分值2; 按位[3] = &st.拆分值3; 按位[4] = &st.拆分值4;
    }
    const int 位数 = 带序号 ? 5 : 4;
    // The text given back has CR LF line ends again, for a text box.
    auto 成文 = [](QString t) { return t.replace(QChar(CR), QStringLiteral("\r\n")); };
    auto 有误 = [&](qsizetype 至) {
        return 成文(净.left(至)) + QStringLiteral("\r\n原始坐标数据有误，无法完成数据转换，请检查[序号]和[数据]。");
    };
    // 6. Scan: a field ends at "," or CR; blank fields keep their place.
    int 行 = 1, 位 = 1;
    qsizetype 起 = 0;
    for (qsizetype i = 0; i < 净.size(); ++i) {
        const QChar c = 净[i];
        if (c != u',' && c != QChar(CR)) continue;
        QString f = 净.mid(起, i - 起);
        f.remove(QChar(u'\n'));
        f = txt::trim(f);
        起 = i + 1;
        if (!f.isEmpty()) {
            if (位 > 位数 || 行 > 行数) return 有误(i);
            拆分数组* a = 按位[位];
            if (a == &st.拆分序号) {
                a->元素[行] = f;
            } else {
                const int 错前 = 计算状态.错误数;
                const 数值 v = Hvt数转数(数值(f));
                if (计算状态.错误数 > 错前) return 有误(i);
                a->元素[行] = v.文本();
            }
            a->个数 += 1;
            st.拆分最宽字段 = std::max(st.拆分最宽字段, 显示宽度(f));
        }
        ++位;
        if (c == QChar(CR)) { 位 = 1; ++行; }
    }
    return 成文(净);
}

int 最宽序号宽度(const CoordinateRow& 组, int 个数) {
    int w = 0;
    for (int i = 1; i <= 个数 && i < 组.序号组.size(); ++i) w = std::max(w, 显示宽度(组.序号组[i]));
    return w;
}

QString 结果行(const QString& 序号, int 最宽, bool 带序号, const QString& 顺序,
              const QString& X文本, const QString& Y文本, const QString& 高程文本,
              const QString& 附注) {
    QString r;
    if (带序号) r += 补宽(序号, 最宽) + QStringLiteral(" , ");
    if (顺序 == QStringLiteral("XYH")) r += X文本 + QStringLiteral(" , ") + Y文本;
    else r += Y文本 + QStringLiteral(" , ") + X文本;
    const QString h = txt::trim(高程文本);
    if (!h.isEmpty() && h != QStringLiteral("0")) r += QStringLiteral(" , ") + 高程文本;
    r += 附注;
    r += QStringLiteral("\r\n");
    return r;
}

QString 格式北坐标(double x) { return 格式化数值(x, QStringLiteral("0000000.000")); }
QString 格式东坐标(double y) { return 格式化数值(y, QStringLiteral("00000000.000")); }
QString 格式高程(double h) { return 格式化数值(h, QStringLiteral("###0.000")); }
QString 格式整理值(double v) { return 格式化数值(v, QStringLiteral("#####0000.000")); }
QString 格式整理高程(double h) { return 格式化数值(h, QStringLiteral("##00.000")); }
