// Hostile text fed to every public text-taking procedure of the numeric
// core: no crash, no exception, the procedure's marker value, and the
// collector telling exactly what it should (a failure reported where the
// text is not a number, nothing where a blank text reads as zero).
#include "numeric/numeric.h"
#include "shell/interaction.h"
#include "shell/state.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace {

std::string S(const QString& s) { return s.toStdString(); }

enum class 性 { 空白, 非数, 数 };

struct 恶意输入 {
    const char* 名;
    QString 文本;
    性 性质;
};

QString 长串(QChar c, int n) { return QString(n, c); }

std::vector<恶意输入> 恶意表() {
    return {
        {"empty", QString(), 性::空白},
        {"blanks", QStringLiteral("   "), 性::空白},
        {"dashes", QStringLiteral("--"), 性::非数},
        {"huge exponent", QStringLiteral("1e999999"), 性::非数},
        {"lone E", QStringLiteral("E"), 性::非数},
        {"lone point", QStringLiteral("."), 性::非数},
        {"10000 nines", 长串(u'9', 10000), 性::非数},   // overflows every kind
        {"10000 junk", 长串(u'#', 10000), 性::非数},
        {"full-width digits", QString::fromUtf8("１２３"), 性::非数},
        {"Chinese numerals", QString::fromUtf8("一二三"), 性::非数},
        {"embedded NUL", QString(QChar(u'1')) + QChar(u'\0') + QChar(u'2'), 性::非数},
        {"tab", QStringLiteral("\t1"), 性::非数},
        {"newline", QStringLiteral("1\n"), 性::非数},
        {"control", QStringLiteral("\x01\x02"), 性::非数},
        {"plus minus", QStringLiteral("+-1"), 性::非数},
        {"E without digits", QStringLiteral("1E"), 性::非数},
        {"E with sign only", QStringLiteral("1E+"), 性::非数},
        {"NaN", QStringLiteral("NaN"), 性::非数},
        {"Infinity", QStringLiteral("Infinity"), 性::非数},
        {"-Infinity", QStringLiteral("-Infinity"), 性::非数},
        {"two points", QStringLiteral("1.2.3"), 性::非数},
        {"comma", QStringLiteral("1,5"), 性::非数},
        {"hex", QStringLiteral("0x10"), 性::非数},
        {"lone surrogate", QString(QChar(0xD800)), 性::非数},
        {"tiny exponent", QStringLiteral("1e-999999"), 性::数},
        {"long valid fraction", QStringLiteral("0.") + 长串(u'3', 9998), 性::数},
        {"long zeros then one", 长串(u'0', 9999) + QChar(u'1'), 性::数},
    };
}

class 恶意 : public ::testing::Test {
protected:
    void SetUp() override {
        清除计算状态();
        公共.高精度开关 = true;
    }
    void TearDown() override {
        清除计算状态();
        公共.高精度开关 = true;
    }
};

// A procedure that takes text and answers with its marker on failure.
struct 被测 {
    const char* 名;
    std::function<QString(const QString&)> 调用;   // the result as text
    QString 标记;          // result for a non-number
    int 非数错误;          // errors a non-number adds
    QString 空白结果;      // result for a blank text (empty: not checked)
    int 空白错误 = 0;      // errors a blank (zero) text adds: a zero divisor fails
};

QString 值文本(const 数值& v) {
    return v.是文本() ? v.文本值() : (v.是空() ? QStringLiteral("<empty>") : v.文本());
}

std::vector<被测> 被测表() {
    const QString one = QStringLiteral("1");
    return {
        {"Hvt数转数", [](const QString& t) { return 值文本(Hvt数转数(t)); }, one, 1, "0"},
        {"求两数积 x", [](const QString& t) { return 值文本(求两数积(t, QStringLiteral("2"))); }, one, 2, "0"},
        {"求两数积 y", [](const QString& t) { return 值文本(求两数积(QStringLiteral("2"), t)); }, one, 2, "0"},
        {"求两数商 x", [](const QString& t) { return 值文本(求两数商(t, QStringLiteral("2"))); }, one, 2, "0"},
        {"求两数商 y", [](const QString& t) { return 值文本(求两数商(QStringLiteral("2"), t)); }, one, 2, one, 1},
        {"求两数和 x", [](const QString& t) { return 值文本(求两数和(t, QStringLiteral("2"))); }, one, 2, "2"},
        {"求两数和 y", [](const QString& t) { return 值文本(求两数和(QStringLiteral("2"), t)); }, one, 2, "2"},
        {"求两数差 x", [](const QString& t) { return 值文本(求两数差(t, QStringLiteral("2"))); }, one, 2, "-2"},
        {"求两数差 y", [](const QString& t) { return 值文本(求两数差(QStringLiteral("2"), t)); }, one, 2, "2"},
        {"求两数余 x", [](const QString& t) { return 值文本(求两数余(t, QStringLiteral("2"))); }, one, -1, "0"},
        {"求两数余 y", [](const QString& t) { return 值文本(求两数余(QStringLiteral("2"), t)); }, one, -1, one, 2},
        {"四舍五入", [](const QString& t) { return 值文本(四舍五入(t, 2)); }, "0", 2, "0"},
        {"取数值的整数部分", [](const QString& t) { return 取数值的整数部分(t); }, "0", 2, "0"},
        {"取数值的小数部分", [](const QString& t) { return 取数值的小数部分(t); }, "0", 2, "0"},
        {"科学计数形式", [](const QString& t) { return 科学计数形式(t); }, "0E+0", 1, "0E+0"},
        {"格式化数值", [](const QString& t) { return 格式化数值(数值(t), QStringLiteral("0.00")); }, "0.00", 0, "0.00"},
    };
}

TEST_F(恶意, 取值过程给标记并报告) {
    for (const auto& p : 被测表()) {
        for (const auto& in : 恶意表()) {
            SCOPED_TRACE(std::string(p.名) + " <- " + in.名);
            清除计算状态();
            QString r;
            EXPECT_NO_THROW(r = p.调用(in.文本));
            switch (in.性质) {
            case 性::空白:
                if (!p.空白结果.isEmpty()) {
                    EXPECT_EQ(S(r), S(p.空白结果));
                }
                EXPECT_EQ(公共.错误数, p.空白错误);
                EXPECT_EQ(公共.首个错误.isEmpty(), p.空白错误 == 0);
                break;
            case 性::非数:
                EXPECT_EQ(S(r), S(p.标记));
                if (p.非数错误 >= 0) {
                    EXPECT_EQ(公共.错误数, p.非数错误);
                } else {
                    EXPECT_GE(公共.错误数, 2);
                }
                if (公共.错误数 > 0) {
                    EXPECT_FALSE(公共.首个错误.isEmpty());
                    EXPECT_TRUE(公共.错误记录.endsWith(公共.错误提示 + QStringLiteral("\r\n")));
                }
                break;
            case 性::数:
                // "1e-999999" reads as 0, a zero divisor.
                if (in.文本 != QStringLiteral("1e-999999")) {
                    EXPECT_EQ(公共.错误数, 0);
                } else {
                    EXPECT_EQ(公共.错误数, p.空白错误);
                }
                break;
            }
        }
    }
}

TEST_F(恶意, 文本检查器只读不报) {
    for (const auto& in : 恶意表()) {
        SCOPED_TRACE(in.名);
        清除计算状态();
        const 数值 v(in.文本);
        int 有效 = -2, 全部 = -2, 减号 = -2, 点号 = -2, E = -2;
        QString 截 = QStringLiteral("?");
        EXPECT_NO_THROW({
            有效 = 判断数的有效字符长度(v);
            全部 = 判断数的有效019字符长度(v);
            减号 = Hvt减号数(v);
            点号 = Hvt点号数(v);
            E = HvtE位置(v);
            截 = Hvt有效长度(v, 5);
        });
        EXPECT_GE(有效, 0);
        EXPECT_GE(全部, 有效);
        EXPECT_GE(减号, 0);
        EXPECT_GE(点号, 0);
        EXPECT_GE(E, 0);
        EXPECT_LE(E, in.文本.size());
        EXPECT_LE(截.size(), in.文本.size());
        EXPECT_EQ(公共.错误数, 0);
    }
    // The long fraction keeps 5 significant digits behind the point.
    EXPECT_EQ(S(Hvt有效长度(数值(QStringLiteral("0.") + 长串(u'3', 9998)), 5)), "0.33333");
}

TEST_F(恶意, 纯文本过程不报告) {
    for (const auto& in : 恶意表()) {
        SCOPED_TRACE(in.名);
        清除计算状态();
        int w = -1;
        QString s;
        EXPECT_NO_THROW({
            w = 显示宽度(in.文本);
            s = 去负号(数值(in.文本));
        });
        EXPECT_GE(w, in.文本.isEmpty() ? 0 : 1);
        EXPECT_LE(w, 2 * in.文本.size());
        EXPECT_LE(s.size(), in.文本.size());
        EXPECT_EQ(公共.错误数, 0);
    }
}

TEST_F(恶意, 平凡运算拒绝非数) {
    for (const auto& in : 恶意表()) {
        SCOPED_TRACE(in.名);
        const 数值 v(in.文本);
        数值 r(QStringLiteral("untouched"));
        Decimal96 d;
        double f = 0;
        int c = 0;
        const bool 是数 = in.性质 == 性::数;
        EXPECT_EQ(转双精度(v, f), 是数);
        EXPECT_EQ(数值加(v, 数值(1), r), 是数);
        EXPECT_EQ(数值比较(v, 数值(1), c), 是数);
        if (!是数) {
            EXPECT_FALSE(转十进制(v, d));
            EXPECT_EQ(r.文本值(), QStringLiteral("untouched"));
        }
        EXPECT_EQ(公共.错误数, 0);
    }
}

TEST_F(恶意, 极端位数参数) {
    const int 位[] = {std::numeric_limits<int>::min(), -1, 0, 29, 1000, std::numeric_limits<int>::max()};
    for (int d : 位) {
        SCOPED_TRACE(d);
        EXPECT_NO_THROW(四舍五入(数值(QStringLiteral("1.23456")), d));
        EXPECT_NO_THROW(Hvt有效长度(数值(QStringLiteral("1.23456")), d));
    }
    EXPECT_EQ(S(四舍五入(数值(QStringLiteral("1.5")), std::numeric_limits<int>::min()).文本()), "2");
    EXPECT_EQ(S(Hvt有效长度(数值(QStringLiteral("1.23456")), std::numeric_limits<int>::max())), "1.23456");
    EXPECT_EQ(公共.错误数, 0);
}

// The elementary functions: each reads its argument through Hvt数转数, so a
// non-number reports at least once (the conversion's marker 1 may then be
// carried on, as their contracts say); a blank argument reads as zero.
struct 函数被测 {
    const char* 名;
    std::function<数值(const QString&)> 调用;
    const char* 非数标记;    // result text for a non-number (nullptr: not fixed)
    const char* 空白结果;    // result text for a blank argument (nullptr: a failure)
};

std::vector<函数被测> 函数被测表() {
    const QString two = QStringLiteral("2");
    return {
        {"乘方 x", [two](const QString& t) { return 乘方(t, two); }, "1", "0"},
        {"乘方 y", [two](const QString& t) { return 乘方(two, t); }, "1", "1"},
        {"开平方", [](const QString& t) { return 开平方(t); }, "1", "0"},
        {"求自然对数", [](const QString& t) { return 求自然对数(t); }, nullptr, nullptr},
        {"求常用对数", [](const QString& t) { return 求常用对数(t); }, nullptr, nullptr},
        {"HvtSin", [](const QString& t) { return HvtSin(t); }, nullptr, "0"},
        {"HvtCos", [](const QString& t) { return HvtCos(t); }, nullptr, "1"},
        {"HvtTan", [](const QString& t) { return HvtTan(t); }, nullptr, "0"},
        {"HvtCot", [](const QString& t) { return HvtCot(t); }, nullptr, nullptr},
        {"度转弧度", [](const QString& t) { return 度转弧度(t); }, nullptr, "0"},
        {"度分秒转弧度", [](const QString& t) { return 度分秒转弧度(t); }, nullptr, "0"},
        {"度转梯度", [](const QString& t) { return 度转梯度(t); }, nullptr, "0"},
        {"度转度分秒", [](const QString& t) { return 度转度分秒(t); }, nullptr, "0"},
        {"求合计值", [](const QString& t) { return 求合计值(1, {数值(t)}); }, nullptr, "0"},
        {"求最大值", [](const QString& t) { return 求最大值(2, {数值(QStringLiteral("-5")), 数值(t)}); }, nullptr, "0"},
        {"求最小值", [](const QString& t) { return 求最小值(2, {数值(QStringLiteral("5")), 数值(t)}); }, nullptr, "0"},
        {"求平均值", [](const QString& t) { return 求平均值(2, {数值(t), 数值(t)}); }, nullptr, "0"},
        {"求均方差", [](const QString& t) { return 求均方差(2, {数值(t), 数值(t)}); }, nullptr, "0"},
        {"求均方差n", [](const QString& t) { return 求均方差n(2, {数值(t), 数值(t)}); }, nullptr, "0"},
        {"求变异系数", [](const QString& t) { return 求变异系数(2, {数值(t), 数值(t)}); }, nullptr, "1E+28"},
        {"求变异系数n", [](const QString& t) { return 求变异系数n(2, {数值(t), 数值(t)}); }, nullptr, "1E+28"},
    };
}

TEST_F(恶意, 初等函数不崩溃且报告非数) {
    交互记录作用域 记录;   // 度转梯度 may tell the user about its seconds
    for (const int 单位 : {60, 100, 3}) {
        公共.角度单位 = 单位;
        for (const auto& f : 函数被测表()) {
            for (const auto& in : 恶意表()) {
                SCOPED_TRACE(std::string(f.名) + " <- " + in.名 + " unit " + std::to_string(单位));
                清除计算状态();
                数值 r;
                EXPECT_NO_THROW(r = f.调用(in.文本));
                const std::string 文 = S(r.文本());
                switch (in.性质) {
                case 性::空白:
                    if (f.空白结果) {
                        EXPECT_EQ(文, f.空白结果);
                        EXPECT_EQ(公共.错误数, 0);
                    } else {
                        EXPECT_GE(公共.错误数, 1);
                    }
                    break;
                case 性::非数:
                    EXPECT_GE(公共.错误数, 1);
                    EXPECT_FALSE(公共.首个错误.isEmpty());
                    if (f.非数标记) {
                        EXPECT_EQ(文, f.非数标记);
                    }
                    break;
                case 性::数:
                    break;   // a long fraction or a tiny number: any honest answer
                }
            }
        }
    }
    公共.角度单位 = 60;
}

TEST_F(恶意, 文本转角度从不报告) {
    for (const auto& in : 恶意表()) {
        SCOPED_TRACE(in.名);
        清除计算状态();
        double r = 0;
        EXPECT_NO_THROW(r = 文本转角度(in.文本));
        EXPECT_TRUE(std::isfinite(r));
        EXPECT_EQ(公共.错误数, 0);
    }
    const char* 角度文本[] = {"°", "′″", "°°°", "-°-′-″", "1e999999°", "45°99999999999999999999′"};
    for (const char* t : 角度文本) {
        SCOPED_TRACE(t);
        double r = 0;
        EXPECT_NO_THROW(r = 文本转角度(QString::fromUtf8(t)));
        EXPECT_TRUE(std::isfinite(r));
        EXPECT_EQ(公共.错误数, 0);
    }
}

}  // namespace
