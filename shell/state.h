// 公共状态, the process-wide state block, gathered in one place. Each floor
// owns its slice and declares it in its own header, so that a floor sees
// only its own and those below:
//
//   slice        header              owner      what it holds
//   计算状态     numeric/state.h     numeric    error and notice collectors, precision
//                                               counters (错误数 … 可达有效位数), output
//                                               settings (高精度开关, 输出小数位数, 角度单位)
//   变量状态     expression/state.h  expression the 25 letter variables A..Z without O
//   脚本状态     script/state.h      script     lists U, V, W; script output; bracket and
//                                               integral scratch
//   数据状态     library/state.h     library    data folder, connection texts, 当前图册
//   坐标状态     geodesy/state.h     geodesy    current ellipsoid, meridian and zone of the
//                                               latest conversion, splitter arrays, formats
//   程序状态     (here)              shell      the program's identity and use counts
//
// Lifetimes: paths, identity and formats are set once at start-up; the
// settings by the screens; the collectors around each calculation; the
// variables zeroed at start and then only written by the user and scripts.
// One thread uses it all, so there are no locks.
#pragma once

#include "expression/state.h"
#include "geodesy/state.h"
#include "library/state.h"
#include "numeric/state.h"
#include "script/state.h"

#include <QString>
#include <cstdint>

// The program's identity: defaults (设置身份默认值), then the SoftName row
// of 常规表 (读软件信息).
struct 程序信息 {
    QString 软件标题 = QStringLiteral("Orvane");
    QString 说明文字;
    QString 主页地址;
    QString 官网地址;
    QString 升级地址;
    std::int32_t 启动次数 = 1;
    std::int32_t 计算次数 = 0;
    std::int32_t 坐标次数 = 0;
};

struct 公共状态 {
    计算状态块& 计算;
    变量状态块& 变量;
    脚本状态块& 脚本;
    数据状态块& 数据;
    坐标模块状态& 坐标;
    程序信息& 程序;
};

inline 程序信息 程序状态;
inline 公共状态 公共{计算状态, 变量状态, 脚本状态, 数据状态, 坐标状态, 程序状态};
