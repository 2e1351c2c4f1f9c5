// The expression floor's slice of the process-wide state: the letter
// variables the evaluator reads. They live here, the lowest floor that reads
// them, so that the evaluator needs nothing from above; the script language,
// the calculator's memory screen and the command line write them.
//
// Invariant: the 25 variables are zeroed once, at start-up
// (初始化字母变量), and never again: scripts may read what an earlier run
// left.
#pragma once

#include "numeric/value.h"

#include <array>

struct 变量状态块 {
    std::array<数值, 25> 字母变量{};  // A..Z without O; see 字母序号()
};

inline 变量状态块 变量状态;

// Index 0..24 of a letter variable A..Z without O, or -1 (O, lower case,
// anything else). Never reports.
constexpr int 字母序号(char16_t c) {
    if (c < u'A' || c > u'Z' || c == u'O') return -1;
    return c < u'O' ? c - u'A' : c - u'A' - 1;
}
static_assert(字母序号(u'A') == 0 && 字母序号(u'N') == 13 && 字母序号(u'P') == 14 && 字母序号(u'Z') == 24);
