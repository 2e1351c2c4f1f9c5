// Whole formulas of the kind the atlas holds, run as the atlas screen runs
// them (parameters into the letter variables and the lists, reset, run),
// checked against values computed here in plain double arithmetic.
#include "script_fixture.h"

#include <QMap>
#include <QStringList>
#include <cmath>

namespace {

QString Q(const char16_t* s) { return QString::fromUtf16(s); }

// A parameter as the atlas loads it: read as a double, stored as decimal.
void 参数(char16_t 名, double 值) {
    Decimal96 d;
    ASSERT_EQ(Decimal96::fromDouble(值, d), Decimal96::Status::Ok);
    变量(名) = 数值(d);
}

// A list box as the atlas loads it: pieces converted, kept as text.
void 列表(数组变量& a, const QList<double>& 值) {
    a.元素 = QStringList{QString()};
    for (double v : 值) {
        Decimal96 d;
        Decimal96::fromDouble(v, d);
        a.元素 << d.toText();
    }
    a.个数 = static_cast<std::int32_t>(值.size());
    a.列表文本 = a.元素.mid(1).join(u',') + u',';
}

// "label = value; label = value" → the values by label.
QMap<QString, double> 读输出(const QString& 出) {
    QMap<QString, double> m;
    for (const QString& 段 : 出.split(u"; "_qs)) {
        const qsizetype k = 段.indexOf(u" = "_qs);
        if (k < 0) continue;
        double v = 0;
        EXPECT_TRUE(文本转双精度(段.mid(k + 3), v)) << 段.toStdString();
        m.insert(段.left(k), v);
    }
    return m;
}

QString 跑(const QString& 脚本) {
    清除计算状态();
    const QString 出 = 运行算式(脚本);
    EXPECT_EQ(公共.错误数, 0) << 脚本.toStdString() << "\n" << 公共.错误记录.toStdString();
    return 出;
}

}  // namespace

using 公式 = 脚本测试;

TEST_F(公式, HeronAreaOfATriangle) {
    const QString 脚本 = Q(u"S=(A+B+C)/2;\u2192面积=(S*(S-A)*(S-B)*(S-C))^0.5;\u2192周长=A+B+C");
    struct 例 { double a, b, c; };
    const 例 表[] = {{5, 6, 7}, {3, 4, 5}, {12.5, 13.25, 7.125}, {1, 1, 1.5}};
    for (const auto& e : 表) {
        重置脚本状态();
        参数(u'A', e.a); 参数(u'B', e.b); 参数(u'C', e.c);
        const double s = (e.a + e.b + e.c) / 2;
        const double 面积 = std::sqrt(s * (s - e.a) * (s - e.b) * (s - e.c));
        const auto m = 读输出(跑(脚本));
        EXPECT_NEAR(m.value(Q(u"面积")), 面积, 6e-9) << e.a << " " << e.b << " " << e.c;
        EXPECT_NEAR(m.value(Q(u"周长")), e.a + e.b + e.c, 1e-12);
    }
    // The whole text for the 5-6-7 triangle: √216 to 8 places.
    重置脚本状态();
    参数(u'A', 5); 参数(u'B', 6); 参数(u'C', 7);
    EXPECT_EQ(跑(脚本), Q(u"面积 = ") + QString::number(std::sqrt(216.0), 'f', 8) + Q(u"; 周长 = 18"));
}

TEST_F(公式, SlopeDistanceAndBearing) {
    const QString 脚本 = Q(u"D=(X^2+Y^2)^0.5;\u2192平距=D;\u2192斜距=(D^2+H^2)^0.5;\u2192方位=ATAN(Y/X)");
    struct 例 { double x, y, h; int 单位; };
    const 例 表[] = {{30.5, 40.25, 3.2, 3}, {120.0, 35.5, -12.75, 3}, {30.5, 40.25, 3.2, 100}};
    for (const auto& e : 表) {
        重置脚本状态();
        公共.角度单位 = e.单位;
        参数(u'X', e.x); 参数(u'Y', e.y); 参数(u'H', e.h);
        const double d = std::hypot(e.x, e.y);
        double 方位 = std::atan(e.y / e.x);
        if (e.单位 == 100) 方位 *= 180.0 / M_PI;  // decimal degrees
        const auto m = 读输出(跑(脚本));
        EXPECT_NEAR(m.value(Q(u"平距")), d, 6e-9);
        EXPECT_NEAR(m.value(Q(u"斜距")), std::hypot(d, e.h), 6e-9);
        EXPECT_NEAR(m.value(Q(u"方位")), 方位, 6e-9);
    }
}

TEST_F(公式, SumOverAListOfMeasuredLengths) {
    const QString 脚本 = Q(u"L=\u03A3(1)(N)(U);M=L/N;Q=\u03A3(1)(N)((U-M)^2);"
                           u"\u2192总长=L;\u2192平均=M;\u2192中误差=(Q/(N-1))^0.5");
    const QList<double> 长度 = {12.345, 23.456, 34.567, 45.678, 19.07};
    列表(公共.数组U, 长度);
    参数(u'N', 长度.size());
    double 和 = 0;
    for (double v : 长度) 和 += v;
    const double 均 = 和 / 长度.size();
    double 方 = 0;
    for (double v : 长度) 方 += (v - 均) * (v - 均);
    const QString 出 = 跑(脚本);
    const auto m = 读输出(出);
    // The sum of decimals is exact: 135.116, printed without binary noise.
    EXPECT_TRUE(出.startsWith(Q(u"总长 = 135.116; "))) << 出.toStdString();
    EXPECT_NEAR(m.value(Q(u"平均")), 均, 6e-9);
    EXPECT_NEAR(m.value(Q(u"中误差")), std::sqrt(方 / (长度.size() - 1)), 6e-9);
    // The loop's letter U was put back.
    EXPECT_EQ(变量文本(u'U'), u"0"_qs);
}

TEST_F(公式, IntegralOfXSquaredFromZeroToTwo) {
    const QString 出 = 跑(Q(u"F=\u222B(0)(2)(X^2);\u2192I=F"));
    const auto m = 读输出(出);
    // Midpoint rule, 1000 strips: |error| <= (b-a) h^2 / 24 * max f'' = 2*0.002^2/24*2.
    EXPECT_NEAR(m.value(u"I"_qs), 8.0 / 3.0, 2 * 0.002 * 0.002 / 24 * 2 + 5e-9);
    EXPECT_EQ(公共.可达有效位数, 15);
}

TEST_F(公式, TariffByCondition) {
    const QString 脚本 = Q(u"IF(X-10)(K=1.5)(K=1);\u2192费用=X*K");
    struct 例 { double x; double 费用; };
    const 例 表[] = {{12, 18}, {10, 10}, {8, 8}, {10.5, 15.75}};
    for (const auto& e : 表) {
        重置脚本状态();
        参数(u'X', e.x);
        EXPECT_DOUBLE_EQ(读输出(跑(脚本)).value(Q(u"费用")), e.费用) << e.x;
    }
}

TEST_F(公式, ArrayStatementThenSumInOneScript) {
    // The editor's canonical text of the same script runs the same.
    const QString 脚本 = Q(u"U=(1.5,2.5,3.5);V=(2,2,2);F=\u03A3(1)(3)(U*V);F");
    EXPECT_EQ(跑(脚本), u"15"_qs);
    重置脚本状态();
    EXPECT_EQ(跑(规整算式(脚本)), u"15"_qs);
}
