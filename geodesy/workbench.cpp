// The conversions within one system of the coordinate workbench, free of the
// screen. Each point runs on a free meridian (width 0): a zone number typed
// in front of a grid Y is dropped, and output Y carries none.
#include "geodesy/workbench.h"
#include "geodesy/coordtext.h"
#include "geodesy/projection.h"

#include "numeric/circular.h"
#include "numeric/rounding.h"
#include "numeric/text.h"
#include "numeric/interaction.h"
#include "geodesy/state.h"

#include <array>
#include <cmath>

namespace {

struct 系统项 { const char16_t* 键; const char16_t* 名称; };
constexpr std::array<系统项, 8> 系统表{{
    {u"BJ", u"北京54"}, {u"XA", u"西安80"}, {u"2K", u"国家2000"}, {u"WGS", u"中国WGS84"},
    {u"WGSN", u"WGS84 -N"}, {u"WGSS", u"WGS84 -S"}, {u"UTMN", u"UTM-WGS -N"}, {u"UTMS", u"UTM-WGS -S"},
}};
static_assert(系统表.size() == 8);

// A meridian in decimal degrees as the heads show it: 70.5 → "70°30′00″".
QString 子午线文本(double 度) { return 角度转文本(规范度分秒(度转度分秒双精度(度)), 坐标状态.格式2位角度); }

}  // namespace

QString 坐标系名称(const QString& 椭球键) {
    const QString k = txt::trim(椭球键).toUpper();
    for (const auto& s : 系统表)
        if (k == QStringView(s.键)) return QString::fromUtf16(s.名称);
    return QString();
}

坐标转换结果 同系坐标转换(const QString& 左文本, const 坐标转换设置& 设置, const QString& 旧右文本) {
    坐标转换结果 结果;
    结果.左文本 = 左文本;
    结果.右文本 = 旧右文本;
    const int 模式 = 设置.OptionA;
    if (模式 < 0 || 模式 > 2) return 结果;

    设置椭球(设置.椭球键);  // 1.
    // 2. The separator for the parser; "TAB" stands for the tab character.
    QString 分隔 = txt::trim(设置.分隔符);
    if (分隔 == QStringLiteral("TAB") || 设置.分隔符 == QStringLiteral("\t")) 分隔 = QStringLiteral("\t");
    坐标状态.列表分隔符 = 分隔;

    // 4. Parse: angle mode for latitude/longitude input, no zone text.
    int 个数 = 设置.点数上限;
    CoordinateRow 组;
    QString 左顺序 = 设置.左顺序, 带号文本;
    const QString 整理 = 坐标文本解析(左文本, 个数, 组, 模式 == 0, 左顺序, 带号文本);
    QString 右顺序 = txt::trim(设置.右顺序).toUpper();
    if (右顺序 != QStringLiteral("XYH")) 右顺序 = QStringLiteral("YXH");

    // 5. The left box: head and cleaned list.
    const QString& 系统 = 设置.坐标系名称;
    if (模式 == 0)
        结果.左文本 = QStringLiteral("┈┈ 经纬度 ") + 系统 + QStringLiteral(" 坐标系 ┈┈") + 左顺序 +
                   QStringLiteral(" ┈┈\r\n") + 整理;
    else
        结果.左文本 = QStringLiteral("┈ 公里网 ") + 系统 + QStringLiteral(" 坐标系 ┈") + 左顺序 +
                   QStringLiteral(" ┈\r\n") + 整理;
    // 6. The parser stops at the limit, so this box stays unseen; kept for a
    // caller that passes a larger count than it allows.
    if (设置.点数上限 > 0 && 个数 > 设置.点数上限)
        交互().告知(QStringLiteral("坐标个数超出了200个！但程序仅处理前200个！"), QStringLiteral("请注意："));
    // 7.
    if (个数 < 1) {
        结果.右文本.clear();
        return 结果;
    }
    // 8.
    if (模式 == 2 && !(std::fabs(设置.左中央子午线 - 设置.右中央子午线) <= 4)) {
        交互().告知(QStringLiteral("两侧的中央子午线差值不能大于4度，请修改中央子午线的值！"),
                   QStringLiteral("出错了！"));
        return 结果;
    }
    const int 最宽 = 最宽序号宽度(组, 个数);  // 9.

    // 10. Point by point; a failing point shows zeros and its note.
    QString 行文本;
    行文本.reserve(个数 * 48);
    for (int i = 1; i <= 个数; ++i) {
        double X = 组.X组[static_cast<size_t>(i)], Y = 组.Y组[static_cast<size_t>(i)];
        const double h = 组.高程组[static_cast<size_t>(i)];
        QString 附注, X文本, Y文本;
        if (模式 == 0) {
            X = 度转梯度双精度(X);
            Y = 度转梯度双精度(Y);
            附注 = 度数转公里网(X, Y, 设置.右中央子午线, 0);
            X文本 = 格式北坐标(X);
            Y文本 = 格式东坐标(Y);
        } else if (模式 == 1) {
            附注 = 公里网转度数(X, Y, 设置.左中央子午线, 0);
            X = 规范度分秒(度转度分秒双精度(X));
            Y = 规范度分秒(度转度分秒双精度(Y));
            X文本 = 角度转文本(X, 坐标状态.格式2位角度);
            Y文本 = 角度转文本(Y, 坐标状态.格式2位角度);
        } else {
            附注 = 公里网换带(X, Y, 设置.左中央子午线, 设置.右中央子午线);
            X文本 = 格式北坐标(X);
            Y文本 = 格式东坐标(Y);
        }
        const QString 高程文本 = h != 0 ? 格式高程(h) : QString();
        行文本 += 结果行(组.序号组[i], 最宽, 设置.带序号, 右顺序, X文本, Y文本, 高程文本, 附注);
    }
    // 11. Head, rows, then what the right box held.
    QString 头;
    if (模式 == 1)
        头 = QStringLiteral("*** ") + 系统 + QStringLiteral(" 经纬度 ┈ ") + 右顺序 + QStringLiteral(" ┈\r\n");
    else
        头 = QStringLiteral("*** ") + 系统 + QStringLiteral(" 公里网（") + 右顺序 + QStringLiteral("）┈ ZWX = ") +
            子午线文本(设置.右中央子午线) + QStringLiteral(" \r\n");
    结果.右文本 = 头 + 行文本 + QStringLiteral("\r\n") + 旧右文本;
    结果.点数 = 个数;
    结果.已转换 = true;
    return 结果;
}

namespace {

QString 带名(int w) {
    switch (w) {
    case 1: return QStringLiteral("1.5度带");
    case 3: return QStringLiteral("三度带");
    case 6: return QStringLiteral("六度带");
    default: return QStringLiteral("经纬度");
    }
}

}  // namespace

坐标转换结果 定带坐标转换(const QString& 左文本, int 从, int 到, const 坐标转换设置& 设置,
                        const QString& 旧右文本) {
    坐标转换结果 结果;
    结果.左文本 = 左文本;
    结果.右文本 = 旧右文本;
    auto 有效 = [](int w) { return w == 0 || w == 1 || w == 3 || w == 6; };
    if (!有效(从) || !有效(到) || 从 == 到) return 结果;

    设置椭球(设置.椭球键);
    const bool east = 坐标状态.EllipsoidRecord.EastCount;
    QString 分隔 = txt::trim(设置.分隔符);
    if (分隔 == QStringLiteral("TAB") || 设置.分隔符 == QStringLiteral("\t")) 分隔 = QStringLiteral("\t");
    坐标状态.列表分隔符 = 分隔;

    // The source zone number: the zone text of the parser, and the head.
    const QString 源带号 = 从 == 0 ? QString()
                                   : 中央子午线转带号(设置.左中央子午线, static_cast<ZoneWidthCode>(从), east);
    QString 带号文本 = 源带号 == QStringLiteral("==") ? QString() : 源带号;
    int 个数 = 设置.点数上限;
    CoordinateRow 组;
    QString 左顺序 = 设置.左顺序;
    const QString 整理 = 坐标文本解析(左文本, 个数, 组, 从 == 0, 左顺序, 带号文本);
    QString 右顺序 = txt::trim(设置.右顺序).toUpper();
    if (右顺序 != QStringLiteral("XYH")) 右顺序 = QStringLiteral("YXH");
    结果.左文本 = QStringLiteral("┈┈ ") + 带名(从) + QStringLiteral(" ") + (从 == 0 ? QString() : 源带号) +
                 QStringLiteral("\r\n") + 整理;
    if (个数 < 1) {
        结果.右文本.clear();
        return 结果;
    }
    const int 最宽 = 最宽序号宽度(组, 个数);
    const QString& 键 = 设置.椭球键;
    QString 行文本;
    for (int i = 1; i <= 个数; ++i) {
        double X = 组.X组[static_cast<size_t>(i)], Y = 组.Y组[static_cast<size_t>(i)];
        QString 附注;
        if (从 == 1) 附注 = 一点五度带转经纬度(X, Y, 键);
        else if (从 == 3) 附注 = 三度带转经纬度(X, Y, 键);
        else if (从 == 6) 附注 = 六度带转经纬度(X, Y, 键);
        // A failed inverse leaves 0, 0 and its note; the forward step is
        // not run on those zeros.
        if (!附注.startsWith(QStringLiteral("错误"))) {
            if (到 == 1) 附注 += 经纬度转一点五度带(X, Y, 设置.右中央子午线, 键);
            else if (到 == 3) 附注 += 经纬度转三度带(X, Y, 设置.右中央子午线, 键);
            else if (到 == 6) 附注 += 经纬度转六度带(X, Y, 设置.右中央子午线, 键);
        }
        const QString X文本 = 到 == 0 ? 角度转文本(X, 坐标状态.格式2位角度) : 格式北坐标(X);
        const QString Y文本 = 到 == 0 ? 角度转文本(Y, 坐标状态.格式2位角度) : 格式东坐标(Y);
        const double h = 组.高程组[static_cast<size_t>(i)];
        行文本 += 结果行(组.序号组[i], 最宽, 设置.带序号, 右顺序, X文本, Y文本, h != 0 ? 格式高程(h) : QString(), 附注);
    }
    const QString 头 = 到 == 0 ? QStringLiteral(" 经纬度 …… ") + 设置.坐标系名称 + QStringLiteral("\r\n")
                               : QStringLiteral("*** ") + 带名(到) + QStringLiteral(" ") + 设置.坐标系名称 +
                                     QStringLiteral("\r\n");
    结果.右文本 = 头 + 行文本 + QStringLiteral("\r\n") + 旧右文本;
    结果.点数 = 个数;
    结果.已转换 = true;
    return 结果;
}
