// The script floor's slice of the process-wide state: the three list
// variables, what the last run printed, and the scratch space of the
// bracket and integral passes.
//
// Invariants:
//   * The lists are set once at start-up (初始化字母变量) and then only by
//     scripts: a script may read what an earlier run left.
//   * Each list's 元素 holds indexes 0..个数 (slot 0 stays unused).
//   * 括号组位置, 积分符号位置, 积分错误 and 积分提示 are scratch of one
//     statement: written by 分析括号组 and the integral, read right after.
#pragma once

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

struct 脚本状态块 {
    数组变量 数组U, 数组V, 数组W;
    QString 脚本输出;                          // what 运行算式 collected
    std::array<std::int32_t, 8> 括号组位置{};  // groups 1..4: open, close, open, close, ...
    std::int32_t 积分符号位置 = 0;
    QString 积分错误;
    QString 积分提示;
};

inline 脚本状态块 脚本状态;
