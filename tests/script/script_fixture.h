// A clean script state for each test: letter variables decimal 0, arrays at
// their start values, collectors reset, output defaults, and a recording
// ask/tell callback (so no test ever blocks on a prompt).
#pragma once

#include "numeric/decimal.h"
#include "numeric/text.h"
#include "script/script.h"
#include "tests/support/recording.h"
#include "expression/state.h"
#include "numeric/state.h"
#include "script/state.h"

#include <gtest/gtest.h>
#include <memory>

inline void 重置脚本状态() {
    for (auto& v : 变量状态.字母变量) v = 数值(Decimal96());
    for (数组变量* a : {&脚本状态.数组U, &脚本状态.数组V, &脚本状态.数组W}) *a = 数组变量{};
    脚本状态.脚本输出.clear();
    脚本状态.括号组位置.fill(0);
    脚本状态.积分符号位置 = 0;
    脚本状态.积分错误.clear();
    脚本状态.积分提示.clear();
    计算状态.输出小数位数 = 8;
    计算状态.高精度开关 = true;
    计算状态.角度单位 = 60;
    清除计算状态();
}

inline QString Q(const char16_t* s) { return QString::fromUtf16(s); }
inline std::string 文(const QString& s) { return s.toStdString(); }
inline 数值& 变量(char16_t c) { return 变量状态.字母变量[static_cast<std::size_t>(字母序号(c))]; }
inline QString 变量文本(char16_t c) { return txt::trim(变量(c).文本()); }

// Fills an array as the atlas screen does from a list box.
inline void 置数组(数组变量& a, const QStringList& 项) {
    a.个数 = static_cast<std::int32_t>(项.size());
    a.列表文本 = 项.join(u',') + u',';
    a.元素 = QStringList{QString()} + 项;
}

class 脚本测试 : public ::testing::Test {
protected:
    void SetUp() override {
        重置脚本状态();
        交互_ = std::make_unique<交互记录作用域>();
    }
    void TearDown() override {
        交互_.reset();
        重置脚本状态();
    }
    记录交互& 交互记录() { return 交互_->记录器; }
    std::unique_ptr<交互记录作用域> 交互_;
};
