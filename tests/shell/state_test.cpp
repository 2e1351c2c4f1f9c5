// The collector's four fixed steps and the reset, which every procedure of
// the numeric core relies on.
#include "shell/state.h"

#include <gtest/gtest.h>

TEST(Collector, FourStepsAndFirstError) {
    清除计算状态();
    报告错误(u"甲"_qs);
    报告错误(u"乙"_qs);
    EXPECT_EQ(公共.错误数, 2);
    EXPECT_EQ(公共.错误提示, u"乙"_qs);
    EXPECT_EQ(公共.首个错误, u"甲"_qs);
    EXPECT_EQ(公共.错误记录, u"甲\r\n乙\r\n"_qs);
    报告提示(u"丙"_qs);
    EXPECT_EQ(公共.提示数, 1);
    EXPECT_EQ(公共.提示记录, u"丙\r\n"_qs);
}

TEST(Collector, ResetKeepsSwitchesAndVariables) {
    公共.高精度开关 = false;
    公共.输出小数位数 = 3;
    公共.字母变量[0] = 数值(5);
    记录精度损失();
    报告错误(u"x"_qs);
    清除计算状态();
    EXPECT_EQ(公共.错误数, 0);
    EXPECT_TRUE(公共.首个错误.isEmpty());
    EXPECT_TRUE(公共.错误记录.isEmpty());
    EXPECT_EQ(公共.精度损失数, 0);
    EXPECT_EQ(公共.可达有效位数, 29);  // even with the switch off
    EXPECT_FALSE(公共.高精度开关);
    EXPECT_EQ(公共.输出小数位数, 3);
    EXPECT_EQ(公共.字母变量[0].整数值(), 5);
    公共.高精度开关 = true;
    公共.输出小数位数 = 8;
}

TEST(LetterIndex, SkipsO) {
    const struct { char16_t c; int i; } cases[] = {
        {u'A', 0}, {u'N', 13}, {u'O', -1}, {u'P', 14}, {u'Z', 24}, {u'a', -1}, {u'@', -1}, {u'[', -1}};
    for (auto [c, i] : cases) EXPECT_EQ(字母序号(c), i) << char(c);
}
