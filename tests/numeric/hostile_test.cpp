// Hostile text fed to every public text-taking procedure of the numeric
// core: blank, signs alone, huge exponents, 10 000-character texts,
// full-width and Chinese digits, NUL and control characters. Nothing may
// crash or throw; each procedure answers with its marker, and the collector
// tells exactly what it should (a failure where the text is no number,
// nothing where a blank text reads as zero).
#include "numeric/numeric.h"
#include "shell/interaction.h"
#include "shell/state.h"
#include "numeric_test_support.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace {

using namespace 数值测试;

enum class 性 { 空白, 非数, 数 };

struct 恶意输入 {
    const char* 名;
    QString 文本;
    性 性质;
};

const std::vector<恶意输入>& 恶意表() {
    static const std::vector<恶意输入> 表 = {
        {"empty", QString(), 性::空白}, {"blanks", QStringLiteral("   "), 性::空白},
        {"dashes", QStringLiteral("--"), 性::非数}, {"huge exponent", QStringLiteral("1e999999"), 性::非数},
        {"lone point", QStringLiteral("."), 性::非数}, {"E without digits", QStringLiteral("1E+"), 性::非数},
        {"10000 nines", QString(10000, u'9'), 性::非数},   // overflows every kind
        {"10000 junk", QString(10000, u'#'), 性::非数}, {"full-width digits", QString::fromUtf8("１２３"), 性::非数},
        {"Chinese numerals", QString::fromUtf8("一二三"), 性::非数},
        {"embedded NUL", QString(QChar(u'1')) + QChar(u'\0') + QChar(u'2'), 性::非数},
        {"tab", QStringLiteral("\t1"), 性::非数}, {"comma", QStringLiteral("1,5"), 性::非数},
        {"Infinity", QStringLiteral("-Infinity"), 性::非数}, {"lone surrogate", QString(QChar(0xD800)), 性::非数},
        {"tiny exponent", QStringLiteral("1e-999999"), 性::数},
        {"long valid fraction", QStringLiteral("0.") + QString(9998, u'3'), 性::数},
    };
    return 表;
}

class 恶意 : public 状态复位 {
protected:
    交互记录作用域 框;   // 度转梯度 may tell the user about its seconds
    void TearDown() override {
        状态复位::TearDown();
        公共.角度单位 = 60;
    }
};

// A procedure that takes text: its result for a non-number, the errors that
// adds (-1: at least one), its result for a blank text (nullptr: a failure),
// and the errors a blank adds (a zero divisor fails).
struct 被测 {
    const char* 名;
    std::function<数值(const QString&)> 调用;
    const char* 标记;
    int 非数错误;
    const char* 空白结果;
    int 空白错误 = 0;
};

数值 文(const QString& s) { return 数值(s); }

std::vector<被测> 被测表() {
    const QString two = QStringLiteral("2");
    return {
        {"Hvt数转数", [](const QString& t) { return Hvt数转数(t); }, "1", 1, "0"},
        {"求两数积 x", [two](const QString& t) { return 求两数积(t, two); }, "1", 2, "0"},
        {"求两数商 y", [two](const QString& t) { return 求两数商(two, t); }, "1", 2, "1", 1},
        {"求两数差 y", [two](const QString& t) { return 求两数差(two, t); }, "1", 2, "2"},
        {"求两数余 y", [two](const QString& t) { return 求两数余(two, t); }, "1", -1, "1", 2},
        {"四舍五入", [](const QString& t) { return 四舍五入(t, 2); }, "0", 2, "0"},
        {"取数值的整数部分", [](const QString& t) { return 文(取数值的整数部分(t)); }, "0", 2, "0"},
        {"科学计数形式", [](const QString& t) { return 文(科学计数形式(t)); }, "0E+0", 1, "0E+0"},
        {"格式化数值", [](const QString& t) { return 文(格式化数值(数值(t), QStringLiteral("0.00"))); }, "0.00", 0, "0.00"},
        {"乘方 x", [two](const QString& t) { return 乘方(t, two); }, "1", 2, "0"},
        {"乘方 y", [two](const QString& t) { return 乘方(two, t); }, "1", 2, "1"},
        {"开平方", [](const QString& t) { return 开平方(t); }, "1", 1, "0"},
        {"求自然对数", [](const QString& t) { return 求自然对数(t); }, nullptr, -1, nullptr},
        {"HvtSin", [](const QString& t) { return HvtSin(t); }, nullptr, 1, "0"},
        {"HvtCot", [](const QString& t) { return HvtCot(t); }, nullptr, 1, nullptr},
        {"度转弧度", [](const QString& t) { return 度转弧度(t); }, nullptr, 1, "0"},
        {"度转梯度", [](const QString& t) { return 度转梯度(t); }, "1", 1, "0"},
        {"度转度分秒", [](const QString& t) { return 度转度分秒(t); }, "1", 1, "0"},
        {"求合计值", [](const QString& t) { return 求合计值(1, {数值(t)}); }, nullptr, -1, "0"},
        {"求均方差", [](const QString& t) { return 求均方差(3, {数值(t), 数值(t), 数值()}); }, nullptr, -1, "0"},
        {"求变异系数n", [](const QString& t) { return 求变异系数n(3, {数值(t), 数值(t), 数值()}); }, nullptr, -1, "1E+28"},
    };
}

TEST_F(恶意, 取值过程给标记并报告) {
    for (const auto& p : 被测表()) {
        for (const auto& in : 恶意表()) {
            SCOPED_TRACE(std::string(p.名) + " <- " + in.名);
            清除计算状态();
            数值 r;
            EXPECT_NO_THROW(r = p.调用(in.文本));
            const std::string 文本 = S(r.是文本() ? r.文本值() : r.文本());
            switch (in.性质) {
            case 性::空白:
                if (p.空白结果) {
                    EXPECT_EQ(文本, p.空白结果);
                    EXPECT_EQ(公共.错误数, p.空白错误);
                } else {
                    EXPECT_GE(公共.错误数, 1);
                }
                break;
            case 性::非数:
                if (p.标记) { EXPECT_EQ(文本, p.标记); }
                if (p.非数错误 >= 0) { EXPECT_EQ(公共.错误数, p.非数错误); }
                else { EXPECT_GE(公共.错误数, 1); }
                if (公共.错误数 > 0) { EXPECT_TRUE(公共.错误记录.endsWith(公共.错误提示 + QStringLiteral("\r\n"))); }
                break;
            case 性::数:
                break;   // a long fraction or a tiny number: any honest answer
            }
        }
    }
    EXPECT_TRUE(框.记录器.记录.isEmpty());   // no text that is no angle shows a box
}

TEST_F(恶意, 文本检查与平凡运算只读不报) {
    for (const auto& in : 恶意表()) {
        SCOPED_TRACE(in.名);
        清除计算状态();
        const 数值 v(in.文本);
        const int 有效 = 判断数的有效字符长度(v), 全部 = 判断数的有效019字符长度(v), E = HvtE位置(v);
        EXPECT_GE(有效, 0);
        EXPECT_GE(全部, 有效);
        EXPECT_GE(Hvt减号数(v), 0);
        EXPECT_GE(Hvt点号数(v), 0);
        EXPECT_GE(E, 0);
        EXPECT_LE(E, in.文本.size());
        EXPECT_LE(Hvt有效长度(v, 5).size(), in.文本.size());
        EXPECT_LE(显示宽度(in.文本), 2 * in.文本.size());
        EXPECT_LE(去负号(v).size(), in.文本.size());
        EXPECT_TRUE(std::isfinite(文本转角度(in.文本)));
        const bool 是数 = in.性质 == 性::数;
        数值 r(QStringLiteral("untouched"));
        double f = 0;
        int c = 0;
        EXPECT_EQ(转双精度(v, f), 是数);
        EXPECT_EQ(数值加(v, 数值(1), r), 是数);
        EXPECT_EQ(数值比较(v, 数值(1), c), 是数);
        if (!是数) { EXPECT_EQ(r.文本值(), QStringLiteral("untouched")); }
        EXPECT_EQ(公共.错误数, 0);
    }
    for (const char* t : {"°", "°°°", "-°-′-″", "1e999999°", "45°99999999999999999999′", "NaN°NaN′NaN″"})
        EXPECT_TRUE(std::isfinite(文本转角度(QString::fromUtf8(t)))) << t;
    EXPECT_TRUE(std::isfinite(文本转角度(QString(5000, u'9') + QStringLiteral("°"))));
    for (int d : {std::numeric_limits<int>::min(), 1000, std::numeric_limits<int>::max()}) {
        EXPECT_NO_THROW(四舍五入(T("1.23456"), d));
        EXPECT_NO_THROW(Hvt有效长度(T("1.23456"), d));
    }
    EXPECT_EQ(S(Hvt有效长度(T("1.23456"), std::numeric_limits<int>::max())), "1.23456");
    EXPECT_EQ(公共.错误数, 0);
}

TEST_F(恶意, 双精度族面对非有限与极值) {
    const double 值[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                         -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::max(),
                         -std::numeric_limits<double>::denorm_min(), 1E-300, -0.0, 7.9228162514264337E+28,
                         179769313486232.5};
    for (double x : 值) {
        EXPECT_EQ(十进制度转弧度(x), 0.0) << x;
        EXPECT_EQ(度分秒转弧度双精度(x), 0.0) << x;
        EXPECT_TRUE(std::isfinite(度转梯度双精度(x))) << x;
        if (!std::isfinite(x) || std::fabs(x) >= 1E+15 || (x != 0.0 && std::fabs(x) < 1E-15)) {
            EXPECT_EQ(S(角度转文本(x)), "0°") << x;   // a value whose text needs an exponent
        }
        // Beyond the bound, or without a fraction, the packed forms pass x on.
        const double p = 度转度分秒双精度(x), q = 规范度分秒(x);
        if (std::isnan(x)) {
            EXPECT_TRUE(std::isnan(p) && std::isnan(q));
        } else if (std::fabs(x) > 角度双精度界限 || x == 0.0) {
            EXPECT_EQ(p, x);
            EXPECT_EQ(q, x);
        } else {
            EXPECT_TRUE(std::isfinite(p) && std::isfinite(q)) << x;
        }
    }
    EXPECT_EQ(公共.错误数, 0);
    EXPECT_TRUE(框.记录器.记录.isEmpty());
}

}  // namespace
