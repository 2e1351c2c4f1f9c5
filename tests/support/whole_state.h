// The guard over every slice, for the tests of the shell, the screens and
// the command line.
#pragma once

#include "shell/state.h"
#include "tests/support/state_guard.h"

using 全部状态守卫 = 状态守卫<计算状态, 变量状态, 脚本状态, 数据状态, 坐标状态, 程序状态>;
