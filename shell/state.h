// 公共状态, the process-wide state block. One copy, `公共`, lives as long as
// the process; no screen owns it, and deep procedures report into it without
// any parameter for it. One thread uses it, so it has no locks.
//
// Invariants:
//   * 错误数 >= 0; 错误记录 is every message since the reset, each closed by
//     CR LF, in order. 首个错误 is set when 错误数 becomes exactly 1; a check
//     that adds several faults at once (the adjacent-operator check) jumps
//     past 1 and leaves it empty, so screens fall back to their own text.
//   * 可达有效位数 only falls during a calculation (29 → 28 → 15), and only
//     清除计算状态 puts it back to 29, even with 高精度开关 off.
//   * 字母变量 and the arrays are zeroed once, at start-up (初始化字母变量),
//     and never again: scripts may read what an earlier run left.
//   * Each array's 元素 list holds indexes 0..个数 (slot 0 stays unused).
#pragma once

#include "numeric/value.h"

#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>

// An array variable U, V or W of the script language.
struct 数组变量 {
    QString 列表文本 = QStringLiteral("0,0");  // the list as it was written
    std::int32_t 个数 = 2;                       // count of elements
    QStringList 元素 = {QString(), QString(), QString()};  // indexes 0..个数, text entries
};

struct 公共状态 {
    // ---- Paths and connections (set once at start-up) ----
    QString 程序目录;        // folder of the program's data, with one closing separator
    QString 帮助文件路径;    // 程序目录 + the help document
    QString 驱动串;          // prefix of all connection texts: "...;Dbq=" + 程序目录
    QString 菜单库连接串;    // 驱动串 + "QdpxMenu.db;Uid=admin;Pwd=...;"
    QString 坐标库连接串;    // 驱动串 + "QdpxDate.db;Uid=admin;Pwd=...;"

    // ---- Program identity (defaults, then the SoftName row of 常规表) ----
    QString 软件标题 = QStringLiteral("Orvane");
    QString 说明文字;
    QString 主页地址;
    QString 官网地址;
    QString 升级地址;
    std::int32_t 启动次数 = 1;
    std::int32_t 计算次数 = 0;
    std::int32_t 坐标次数 = 0;

    // ---- 当前图册: the open atlas, empty until the main menu opens one ----
    QStringList 图册按钮表;   // 类别ID of atlas buttons 1..12
    QString 图册库文件;
    QString 图册库连接串;
    QString 图册类别ID;
    QString 图册ID前缀;
    QString 图册标题;
    QString 图册帮助文件;
    std::int32_t 类别数 = 0;
    QStringList 类别ID表;     // entries 1..类别数 (index 0 unused)
    QStringList 类别名称表;
    QString 初始类别;         // consumed once by the atlas screen's load
    QString 初始公式ID;

    // ---- Calculation state: the error and notice collectors ----
    std::int32_t 错误数 = 0;
    QString 错误提示;         // newest error message
    QString 首个错误;         // first error message since the reset
    QString 错误记录;         // all error messages, each closed by CR LF
    std::int32_t 提示数 = 0;
    QString 提示信息;         // newest notice
    QString 提示记录;         // all notices, each closed by CR LF

    // ---- Precision ----
    std::int32_t 精度损失数 = 0;    // steps that fell to double
    std::int32_t 可达有效位数 = 29; // 29 exact decimal; 28 after an iterated root/power; 15 after double
    bool 高精度开关 = true;          // off: conversions, powers, roots, rounding, sines go to double
    std::int32_t 输出小数位数 = 8;  // decimals of a shown result
    std::int32_t 角度单位 = 60;     // 60 度分秒 (packed DDD.MMSS), 100 百分度, 3 弧度

    // ---- Script language ----
    std::array<数值, 25> 字母变量{};  // A..Z without O; see 字母序号()
    数组变量 数组U, 数组V, 数组W;
    QString 脚本输出;                 // what 运行算式 collected
    std::array<std::int32_t, 8> 括号组位置{};  // groups 1..4: open, close, open, close, ...
    std::int32_t 积分符号位置 = 0;
    QString 积分错误;
    QString 积分提示;

    // ---- Output and coordinate defaults (设置输出格式) ----
    QString 格式7位坐标 = QStringLiteral("0000000.000");
    QString 格式8位坐标 = QStringLiteral("00000000.000");
    QString 格式高程 = QStringLiteral("###0.000");
    QString 格式2位角度 = QStringLiteral("00.00000000");
    QString 格式3位角度 = QStringLiteral("000.00000000");
    std::int32_t 格式小数位数 = 3;
    QString 列表分隔符 = QStringLiteral(",");  // separator of the coordinate screens
};

inline 公共状态 公共;

// Index 0..24 of a letter variable A..Z without O, or -1 (O, lower case,
// anything else). Never reports.
constexpr int 字母序号(char16_t c) {
    if (c < u'A' || c > u'Z' || c == u'O') return -1;
    return c < u'O' ? c - u'A' : c - u'A' - 1;
}
static_assert(字母序号(u'A') == 0 && 字母序号(u'N') == 13 && 字母序号(u'P') == 14 && 字母序号(u'Z') == 24);

// The collector's fixed four steps: 错误数 + 1, 错误提示 = message,
// 错误记录 += message + CR LF, 首个错误 = message when 错误数 became 1.
inline void 报告错误(const QString& 消息) {
    公共.错误数 += 1;
    公共.错误提示 = 消息;
    公共.错误记录 += 消息 + QStringLiteral("\r\n");
    if (公共.错误数 == 1) 公共.首个错误 = 消息;
}

// The notice collector: the same without a "first" field.
inline void 报告提示(const QString& 消息) {
    公共.提示数 += 1;
    公共.提示信息 = 消息;
    公共.提示记录 += 消息 + QStringLiteral("\r\n");
}

// A step fell to double: 精度损失数 + 1, 可达有效位数 = 15.
inline void 记录精度损失() {
    公共.精度损失数 += 1;
    公共.可达有效位数 = 15;
}

// Resets the collectors and the precision counters (not 高精度开关, not
// 输出小数位数, not the variables). Called ahead of every calculation and
// again after its result is shown.
inline void 清除计算状态() {
    公共.错误数 = 0;
    公共.错误提示.clear();
    公共.首个错误.clear();
    公共.错误记录.clear();
    公共.提示数 = 0;
    公共.提示信息.clear();
    公共.提示记录.clear();
    公共.精度损失数 = 0;
    公共.可达有效位数 = 29;
}
