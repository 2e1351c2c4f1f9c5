// The numeric floor's slice of the process-wide state: the error and notice
// collectors, the precision counters and the output settings. One copy,
// `计算状态`, lives as long as the process; deep procedures report into it
// without any parameter for it. One thread uses it, so it has no locks.
// shell/state.h gathers this slice with those of the floors above into
// 公共状态.
//
// Invariants:
//   * 错误数 >= 0; 错误记录 is every message since the reset, each closed by
//     CR LF, in order. 首个错误 is set when 错误数 becomes exactly 1; a check
//     that adds several faults at once (the adjacent-operator check) jumps
//     past 1 and leaves it empty, so screens fall back to their own text.
//   * 可达有效位数 only falls during a calculation (29 → 28 → 15), and only
//     清除计算状态 puts it back to 29, even with 高精度开关 off.
//   * The three settings are the caller's: a procedure that needs other
//     values for a while uses 设置作用域, which puts them back.
#pragma once

#include <QString>
#include <cstdint>

struct 计算状态块 {
    // ---- The error collector (reset by 清除计算状态) ----
    std::int32_t 错误数 = 0;
    QString 错误提示;         // newest error message
    QString 首个错误;         // first error message since the reset
    QString 错误记录;         // all error messages, each closed by CR LF
    // ---- The notice collector (reset by 清除计算状态) ----
    std::int32_t 提示数 = 0;
    QString 提示信息;         // newest notice
    QString 提示记录;         // all notices, each closed by CR LF

    // ---- Precision counters (reset by 清除计算状态) ----
    std::int32_t 精度损失数 = 0;    // steps that fell to double
    std::int32_t 可达有效位数 = 29; // 29 exact decimal; 28 after an iterated root/power; 15 after double

    // ---- Output settings (set at start by 设置输出格式, then by the screens) ----
    bool 高精度开关 = true;          // off: conversions, powers, roots, rounding, sines go to double
    std::int32_t 输出小数位数 = 8;  // decimals of a shown result, 0..28
    std::int32_t 角度单位 = 60;     // 60 度分秒 (packed DDD.MMSS), 100 百分度, 3 弧度
};

inline 计算状态块 计算状态;

// The collector's fixed four steps: 错误数 + 1, 错误提示 = message,
// 错误记录 += message + CR LF, 首个错误 = message when 错误数 became 1.
inline void 报告错误(const QString& 消息) {
    计算状态.错误数 += 1;
    计算状态.错误提示 = 消息;
    计算状态.错误记录 += 消息 + QStringLiteral("\r\n");
    if (计算状态.错误数 == 1) 计算状态.首个错误 = 消息;
}

// The notice collector: the same without a "first" field.
inline void 报告提示(const QString& 消息) {
    计算状态.提示数 += 1;
    计算状态.提示信息 = 消息;
    计算状态.提示记录 += 消息 + QStringLiteral("\r\n");
}

// A step fell to double: 精度损失数 + 1, 可达有效位数 = 15.
inline void 记录精度损失() {
    计算状态.精度损失数 += 1;
    计算状态.可达有效位数 = 15;
}

// Resets the collectors and the precision counters (not the settings, not
// the variables). Called ahead of every calculation and again after its
// result is shown.
inline void 清除计算状态() {
    const 计算状态块 空;
    计算状态.错误数 = 0;
    计算状态.错误提示.clear();
    计算状态.首个错误.clear();
    计算状态.错误记录.clear();
    计算状态.提示数 = 0;
    计算状态.提示信息.clear();
    计算状态.提示记录.clear();
    计算状态.精度损失数 = 空.精度损失数;
    计算状态.可达有效位数 = 空.可达有效位数;
}

// The three output settings as one value, for procedures that take them as
// an argument.
struct 输出设置 {
    std::int32_t 小数位数 = 8;
    std::int32_t 角度单位 = 60;
    bool 高精度 = true;
};

inline 输出设置 当前输出设置() {
    return {计算状态.输出小数位数, 计算状态.角度单位, 计算状态.高精度开关};
}

// Puts `设置` into the shared settings for the life of the scope and the
// caller's own back at its end, whatever way the scope is left.
class 设置作用域 {
public:
    explicit 设置作用域(const 输出设置& 设置) : 旧_(当前输出设置()) { 装入(设置); }
    ~设置作用域() { 装入(旧_); }
    设置作用域(const 设置作用域&) = delete;
    设置作用域& operator=(const 设置作用域&) = delete;

private:
    static void 装入(const 输出设置& s) {
        计算状态.输出小数位数 = s.小数位数;
        计算状态.角度单位 = s.角度单位;
        计算状态.高精度开关 = s.高精度;
    }
    输出设置 旧_;
};
