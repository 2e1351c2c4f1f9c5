// The logic of the coordinate workbench's conversions within one system
// (FormZB, frame OptionT1, button dcButJiSuan1), free of the screen: the
// screen hands over the left box, its settings and the right box, and gets
// the two boxes back. Message boxes go through 交互().
#pragma once

#include <QString>

// What the screen holds for a run. Meridians are decimal degrees (the
// screen turns the packed list values, 70.30 = 70°30′, into degrees).
struct 坐标转换设置 {
    int OptionA = 0;                 // 0 经纬度→公里网, 1 公里网→经纬度, 2 公里网换带
    QString 椭球键 = QStringLiteral("BJ");      // key of Combo4 (设置椭球)
    QString 坐标系名称 = QStringLiteral("北京54");  // text of Combo4, shown in the heads
    double 左中央子午线 = 117;       // meridian of the input grid (OptionA 1, 2)
    double 右中央子午线 = 117;       // meridian of the output grid (OptionA 0, 2)
    QString 左顺序 = QStringLiteral("YXH");     // order word of the input
    QString 右顺序 = QStringLiteral("YXH");     // order word of the output
    bool 带序号 = true;               // results carry the name column
    QString 分隔符 = QStringLiteral(",");      // input separator; "TAB" or "\t" for TAB
    int 点数上限 = 200;               // the screen's limit; <= 0 means none
};

struct 坐标转换结果 {
    QString 左文本;       // new Text1: head and cleaned list (or the parser's message)
    QString 右文本;       // new Text2: head, rows, CR LF, the old right text
    int 点数 = 0;         // points converted
    bool 已转换 = false;  // false when the run ended early (no point, meridians refused)
};

// Keys of Combo4 and their captions, in list order: "BJ" "北京54", "XA"
// "西安80", "2K" "国家2000", "WGS" "中国WGS84", "WGSN" "WGS84 -N", "WGSS"
// "WGS84 -S", "UTMN" "UTM-WGS -N", "UTMS" "UTM-WGS -S". Empty for an
// unknown key.
QString 坐标系名称(const QString& 椭球键);

// Runs the conversion of OptionA over the left text: sets the ellipsoid,
// copies the separator to 坐标状态.列表分隔符, parses (angle mode for OptionA 0),
// converts point by point on free meridians (width 0) and lays out the rows,
// newest results on top of 旧右文本. OptionA 2 refuses meridians more than 4
// degrees apart through 交互().告知 ("出错了！"). A failing point shows zeros
// and its note; the run never stops on a bad row. Never throws.
坐标转换结果 同系坐标转换(const QString& 左文本, const 坐标转换设置& 设置, const QString& 旧右文本);

// The fixed-zone batch conversions between named zones of one system, kept
// beside the live runs (no control of the workbench calls them). 从 and 到
// are a ZoneWidthCode 1, 3, 6, or 0 for latitude/longitude (packed). Grid
// input gets the zone number of 设置.左中央子午线 in front of a Y typed
// without one; the chain is the fixed-zone inverse of 从 and the forward of
// 到 on 设置.右中央子午线, so a grid result carries its zone number. Heads:
// left "┈┈ 三度带 " + source zone number (or "┈┈ 经纬度 "), right
// "*** 三度带 " (" 经纬度 …… " for latitude/longitude) + the system. 从 ==
// 到, or a code other than 0, 1, 3, 6: nothing runs (已转换 false).
坐标转换结果 定带坐标转换(const QString& 左文本, int 从, int 到, const 坐标转换设置& 设置,
                        const QString& 旧右文本);
