// The library floor's slice of the process-wide state: where the data files
// are, and the atlas the main menu opened last (当前图册).
//
// Invariants:
//   * The paths are set once at start-up (设置路径) and hold one closing
//     separator; every connection text is 驱动串 + a file name + a tail.
//   * The 当前图册 fields are empty until 读当前图册 fills them, and are
//     emptied together when it fails; 初始类别 and 初始公式ID are consumed
//     once by the atlas screen's load.
#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>

struct 数据状态块 {
    // ---- Paths and connections (set once at start-up) ----
    QString 程序目录;        // folder of the program's data, with one closing separator
    QString 帮助文件路径;    // 程序目录 + the help document
    QString 驱动串;          // prefix of all connection texts: "...;Dbq=" + 程序目录
    QString 菜单库连接串;    // 驱动串 + "QdpxMenu.db;Uid=admin;Pwd=...;"
    QString 坐标库连接串;    // 驱动串 + "QdpxDate.db;Uid=admin;Pwd=...;"

    // ---- 当前图册: the open atlas ----
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
    QString 初始类别;
    QString 初始公式ID;
};

inline 数据状态块 数据状态;
