// Array statistics: exact decimal results, empty and one-element lists,
// blank entries, kinds across the list, the fault messages and the
// coefficient of variation's conventions. Reference roots to 40 digits from
// arbitrary-precision arithmetic; sums and means worked by hand.
#include "numeric/statistics.h"
#include "numeric/guarded.h"
#include "numeric/value.h"
#include "shell/state.h"

#include "numeric_test_support.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace 数值测试;

QList<数值> 列(std::initializer_list<const char*> xs) {
    QList<数值> r;
    for (const char* x : xs) r.append(数值(QString::fromUtf8(x)));
    return r;
}

using 统计函数 = 数值 (*)(int, const QList<数值>&);

struct 名函 {
    const char* 名;
    统计函数 f;
};
const 名函 k八个[] = {
    {"求合计值", 求合计值}, {"求最大值", 求最大值}, {"求最小值", 求最小值},
    {"求平均值", 求平均值}, {"求均方差", 求均方差}, {"求均方差n", 求均方差n},
    {"求变异系数", 求变异系数}, {"求变异系数n", 求变异系数n},
};
static_assert(std::size(k八个) == 8);

统计函数 按名(const std::string& 名) {
    for (const auto& e : k八个)
        if (名 == e.名) return e.f;
    return nullptr;
}

class 数组统计 : public ::testing::Test {
protected:
    void SetUp() override { 清除计算状态(); 公共.高精度开关 = true; }
    void TearDown() override { 清除计算状态(); 公共.高精度开关 = true; }
};

TEST_F(数组统计, 空数组八个都给十进制零) {
    const QList<数值> 空列;
    const QList<数值> 有值 = 列({"5", "7"});
    for (const auto& e : k八个) {
        for (int n : {0, -1}) {
            清除计算状态();
            EXPECT_EQ(述(e.f(n, 空列)), "D:0") << e.名 << " n=" << n;
            EXPECT_EQ(述(e.f(n, 有值)), "D:0") << e.名 << " n=" << n;
            EXPECT_EQ(公共.错误数, 0) << e.名;
            EXPECT_EQ(公共.可达有效位数, 29) << e.名;
        }
    }
}

struct 值例 {
    const char* 函数;
    std::vector<const char*> 值;
    const char* 结果;
    int 位数;
};

TEST_F(数组统计, 各统计的精确值) {
    const 值例 例[] = {
        {"求合计值", {"0.1", "0.2"}, "D:0.3", 29},
        {"求合计值", {"1", "", "2.5", "   "}, "D:3.5", 29},      // blanks count as 0
        {"求合计值", {"-1.25"}, "D:-1.25", 29},
        {"求合计值", {"7E+28", "7E+28"}, "F:1.4E+29", 15},       // beyond the decimal: the sum falls
        {"求平均值", {"1", "2", "2"}, "D:1.6666666666666666666666666667", 29},
        {"求平均值", {"", "3"}, "D:1.5", 29},
        {"求平均值", {"-4", "4"}, "D:0", 29},
        {"求最大值", {"1", "1.0", "2"}, "D:2", 29},
        {"求最大值", {"-5", "-2.5", "-3"}, "D:-2.5", 29},
        {"求最小值", {"3", "-0.5", "2"}, "D:-0.5", 29},
        {"求最大值", {"7"}, "D:7", 29},
        {"求最大值", {"1", "1E+30"}, "F:1E+30", 15},          // a double beyond the decimal compares as double
        {"求最小值", {"5", "-1E+30"}, "F:-1E+30", 15},
        {"求均方差", {"5"}, "D:0", 29},
        {"求均方差n", {"5"}, "D:0", 28},                      // divisor 1: the root is taken, 0 exactly
        {"求均方差n", {"2", "4", "4", "4", "5", "5", "7", "9"}, "D:2", 28},   // Σ = 32, /8 = 4
        {"求均方差n", {"1", "3"}, "D:1", 28},
        {"求均方差", {"3", "3", "3"}, "D:0", 28},
        {"求均方差n", {"", "2"}, "D:1", 28},                  // blank entry is 0: values 0, 2
        {"求变异系数", {"3", "3", "3"}, "D:0", 28},
        {"求变异系数", {"0", "0"}, "F:1E+28", 29},            // zero mean: infinite by decree
        {"求变异系数n", {"-1", "1"}, "F:1E+28", 29},
        {"求变异系数n", {"1", "3"}, "D:0.5", 28},
        {"求变异系数", {"5"}, "D:0", 29},                     // one value: no spread
    };
    for (const auto& e : 例) {
        清除计算状态();
        QList<数值> a;
        for (const char* x : e.值) a.append(数值(QString::fromUtf8(x)));
        const 数值 r = 按名(e.函数)(static_cast<int>(a.size()), a);
        EXPECT_EQ(述(r), e.结果) << e.函数 << " over " << e.值.size();
        EXPECT_EQ(公共.可达有效位数, e.位数) << e.函数;
        EXPECT_EQ(公共.错误数, 0) << e.函数 << S(公共.错误记录);
    }
}

struct 根例 {
    const char* 函数;
    std::vector<const char*> 值;
    const char* 真值;
};

TEST_F(数组统计, 均方差与变异系数的根到二十七位) {
    const 根例 例[] = {
        {"求均方差", {"1", "3"}, "1.414213562373095048801688724209698078570"},            // √2
        {"求均方差", {"2", "4", "4", "4", "5", "5", "7", "9"}, "2.138089935299395077476427847038028172432"},  // √(32/7)
        {"求变异系数", {"1", "3"}, "0.7071067811865475244008443621048490392848"},          // √2 / 2
        {"求均方差", {"0.1", "0.2", "0.4"}, "0.1527525231651946668862682397909336162995"},  // √(0.02333…), the sample variance
    };
    for (const auto& e : 例) {
        清除计算状态();
        QList<数值> a;
        for (const char* x : e.值) a.append(数值(QString::fromUtf8(x)));
        const 数值 r = 按名(e.函数)(static_cast<int>(a.size()), a);
        EXPECT_TRUE(接近(r, e.真值, 2E-27)) << e.函数;
        EXPECT_EQ(公共.可达有效位数, 28) << e.函数;
    }
}

TEST_F(数组统计, 相等值保留第一个) {
    // "1.0" and "1" are the same number; the first one read stands, which
    // shows in the scale the decimal keeps.
    const 数值 一点零 = Hvt数转数(数值(QStringLiteral("1.0")));
    const 数值 一 = Hvt数转数(数值(QStringLiteral("1")));
    ASSERT_TRUE(一点零.是十进制() && 一.是十进制());
    ASSERT_NE(一点零.十进制值().scale(), 一.十进制值().scale());
    for (统计函数 f : {求最大值, 求最小值}) {
        const 数值 r1 = f(2, 列({"1.0", "1"}));
        EXPECT_EQ(r1.十进制值().scale(), 一点零.十进制值().scale());
        const 数值 r2 = f(2, 列({"1", "1.0"}));
        EXPECT_EQ(r2.十进制值().scale(), 一.十进制值().scale());
    }
}

TEST_F(数组统计, 运行故障给零并报告) {
    struct 例 { const char* 函数; const char* 消息; };
    // A count beyond the list is a fault of each procedure.
    const 例 表[] = {
        {"求合计值", "对数组[求合计值]时超出本程序计算范围！返回 [0] 。"},
        {"求最大值", "对数组[求最大值]时超出本程序计算范围！返回 [0] 。"},
        {"求最小值", "对数组[求最小值]时超出本程序计算范围！返回 [0] 。"},
        {"求平均值", "对数组[求平均值]时超出本程序计算范围！返回 [0] 。"},
        {"求均方差", "对数组[求均方差]时超出本程序计算范围！返回 [0] 。"},
        {"求均方差n", "对数组[求均方差n]时超出本程序计算范围！返回 [0] 。"},
    };
    for (const auto& e : 表) {
        清除计算状态();
        EXPECT_EQ(述(按名(e.函数)(3, 列({"1", "2"}))), "D:0") << e.函数;
        EXPECT_GE(公共.错误数, 1) << e.函数;
        EXPECT_EQ(S(公共.错误提示), e.消息);
    }
    // The squares are plain decimal products: (1E+20)² overflows the
    // decimal, and the deviation reports.
    清除计算状态();
    EXPECT_EQ(述(求均方差(2, 列({"1E+20", "-1E+20"}))), "D:0");
    EXPECT_EQ(S(公共.首个错误), "对数组[求均方差]时超出本程序计算范围！返回 [0] 。");
    EXPECT_EQ(公共.错误数, 1);
}

TEST_F(数组统计, 变异系数不报告自身故障) {
    // The deviation faults (and reports once); the coefficient over it adds
    // nothing of its own and stays a value the caller can test.
    清除计算状态();
    const 数值 r = 求变异系数n(2, 列({"1E+20", "3E+20"}));
    EXPECT_EQ(公共.错误数, 1);
    EXPECT_EQ(S(公共.首个错误), "对数组[求均方差n]时超出本程序计算范围！返回 [0] 。");
    EXPECT_EQ(述(r), "D:0");   // the faulted deviation is 0, and 0 / mean is 0
}

TEST_F(数组统计, 非数项经守护报告仍给值) {
    清除计算状态();
    const 数值 r = 求最大值(3, 列({"2", "abc", "5"}));
    EXPECT_EQ(述(r), "D:5");
    EXPECT_EQ(公共.错误数, 1);
    EXPECT_EQ(S(公共.首个错误), "  进行[Hvt数转数]运算时， abc 数值超出计算范围！返回数值用[1]表示。");
}

}  // namespace
