// The workbench run within one system: heads, rows, notes, refusals, and
// the right box piling up; and hostile lists, numbers and parameters.
#include "geodesy/coordtext.h"
#include "geodesy/projection.h"
#include "geodesy/workbench.h"

#include "numeric/circular.h"
#include "tests/support/recording.h"
#include "geodesy/state.h"
#include "numeric/state.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

坐标转换设置 设置(int 模式, double 左 = 117, double 右 = 117) {
    坐标转换设置 s;
    s.OptionA = 模式;
    s.左中央子午线 = 左;
    s.右中央子午线 = 右;
    return s;
}

}  // namespace

TEST(同系坐标转换, 经纬度到公里网) {
    交互记录作用域 记录;
    const QString 左 = QString::fromUtf8("D01, 116°24′00″, 39°54′00″, 50.5\r\n北京, 116.24, 39.54\r\n");
    const auto r = 同系坐标转换(左, 设置(0), QString::fromUtf8("旧的成果"));
    EXPECT_TRUE(r.已转换);
    EXPECT_EQ(r.点数, 2);
    EXPECT_EQ(r.左文本, QString::fromUtf8("┈┈ 经纬度 北京54 坐标系 ┈┈YXH ┈┈\r\n"
                                          "D01  , 116°24′00″ , 39°54′00″ , 50.500\r\n"
                                          "北京 , 116°24′00″ , 39°54′00″\r\n"));
    EXPECT_EQ(r.右文本, QString::fromUtf8("*** 北京54 公里网（YXH）┈ ZWX = 117°00′00″ \r\n"
                                          "D01  , 00448687.997 , 4418676.150 , 50.500\r\n"
                                          "北京 , 00448687.997 , 4418676.150\r\n"
                                          "\r\n旧的成果"));
    EXPECT_TRUE(记录.记录器.记录.isEmpty());
    EXPECT_EQ(坐标状态.列表分隔符, QString(","));
}

TEST(同系坐标转换, 公里网到经纬度与换带) {
    交互记录作用域 记录;
    // A Y typed with its zone number reads the same on the free meridian.
    const QString 左 = QString::fromUtf8("A, 448687.997, 4418676.150\r\nB, 39448687.997, 4418676.150\r\n");
    auto s = 设置(1);
    s.右顺序 = "XYH";
    s.带序号 = false;
    auto r = 同系坐标转换(左, s, QString());
    EXPECT_EQ(r.右文本, QString::fromUtf8("*** 北京54 经纬度 ┈ XYH ┈\r\n"
                                          "39°54′00″ , 116°24′00″\r\n"
                                          "39°54′00″ , 116°24′00″\r\n\r\n"));
    EXPECT_TRUE(r.左文本.startsWith(QString::fromUtf8("┈ 公里网 北京54 坐标系 ┈YXH ┈\r\n")));
    // Zone change 117 → 120 equals the direct conversion on 120.
    r = 同系坐标转换(左, 设置(2, 117, 120), QString());
    ASSERT_TRUE(r.已转换);
    const auto 直 = 同系坐标转换(QString::fromUtf8("A, 116°24′, 39°54′\r\n"), 设置(0, 117, 120), QString());
    const QString 直行 = 直.右文本.split("\r\n")[1];
    EXPECT_EQ(r.右文本.split("\r\n")[1], 直行);
    EXPECT_TRUE(r.右文本.startsWith(QString::fromUtf8("*** 北京54 公里网（YXH）┈ ZWX = 120°00′00″ \r\n")));
    // Meridians too far apart: refused, boxes as they were but the left one.
    r = 同系坐标转换(左, 设置(2, 117, 122), QString::fromUtf8("旧"));
    EXPECT_FALSE(r.已转换);
    EXPECT_EQ(r.右文本, QString::fromUtf8("旧"));
    ASSERT_EQ(记录.记录器.记录.size(), 1);
    EXPECT_EQ(记录.记录器.记录[0].标题, QString::fromUtf8("出错了！"));
    EXPECT_EQ(记录.记录器.记录[0].文本, QString::fromUtf8("两侧的中央子午线差值不能大于4度，请修改中央子午线的值！"));
    // A packed meridian 70°30′ is given in degrees, shown as an angle.
    r = 同系坐标转换(QString::fromUtf8("A, 70°30′, 40°\r\n"), 设置(0, 117, 70.5), QString());
    EXPECT_TRUE(r.右文本.contains(QString::fromUtf8("ZWX = 70°30′00″ ")));
    EXPECT_TRUE(r.右文本.contains(QString::fromUtf8("A , 00500000.000 , ")));
}

TEST(同系坐标转换, 坏点与空表) {
    交互记录作用域 记录;
    const QString 零X = QStringLiteral("0000000.000"), 零Y = QStringLiteral("00000000.000");
    struct { int 模式; const char* 行; const char* 附注; QString 零; } 表[] = {
        {0, "A, 123.3, 39.54", "错误? 中央子午线设置有误！", 零Y + " , " + 零X},
        {0, "A, 116.24, 95", "错误? 经纬度应 |x|<=90 |y|<=180", 零Y + " , " + 零X},
        {1, "A, 448687.997, 10004418676", "错误?公里网坐标(|X|)超出常规!", 角度转文本(0, 坐标状态.格式2位角度) + " , " + 角度转文本(0, 坐标状态.格式2位角度)},
        {1, "A, -448687.997, 4418676.15", "错误?公里网坐标(Y<0)超出常规!", 角度转文本(0, 坐标状态.格式2位角度) + " , " + 角度转文本(0, 坐标状态.格式2位角度)},
    };
    for (const auto& t : 表) {
        const QString 左 = QString::fromUtf8(t.行) + "\r\nB, 116.24, 39.54\r\n";
        const auto r = 同系坐标转换(左, 设置(t.模式), QString());
        const QStringList 行 = r.右文本.split("\r\n");
        ASSERT_GE(行.size(), 3) << t.行;
        EXPECT_EQ(行[1], "A , " + t.零 + QString::fromUtf8(t.附注)) << t.行;
        EXPECT_EQ(r.点数, 2);  // the next point still runs
    }
    // No point: the right box empties.
    const auto r = 同系坐标转换(QString::fromUtf8("没有数据"), 设置(0), QString::fromUtf8("旧"));
    EXPECT_FALSE(r.已转换);
    EXPECT_EQ(r.右文本, QString());
    EXPECT_TRUE(r.左文本.endsWith(QString::fromUtf8("该字符串中没有发现坐标数据!!!")));
}

TEST(同系坐标转换, 分隔符系统与上限) {
    交互记录作用域 记录;
    auto s = 设置(0);
    s.分隔符 = "TAB";
    s.椭球键 = "2K";
    s.坐标系名称 = 坐标系名称("2K");
    auto r = 同系坐标转换(QString::fromUtf8("A\t116.24\t39.54\r\n"), s, QString());
    EXPECT_EQ(坐标状态.列表分隔符, QString("\t"));
    EXPECT_TRUE(r.右文本.startsWith(QString::fromUtf8("*** 国家2000 公里网（YXH）")));
    // TAB is no printable separator: the cleaned list is written with ",".
    EXPECT_TRUE(r.左文本.contains(QString::fromUtf8("A    , 116°24′00″ , 39°54′00″")));
    // A different ellipsoid gives other digits.
    const auto bj = 同系坐标转换(QString::fromUtf8("A,116.24,39.54\r\n"), 设置(0), QString());
    EXPECT_NE(r.右文本.split("\r\n")[1], bj.右文本.split("\r\n")[1]);
    坐标状态.列表分隔符 = ",";
    EXPECT_TRUE(记录.记录器.记录.isEmpty());
    QString 多;   // the screen's limit of 200
    for (int i = 0; i < 230; ++i) 多 += QString("P%1, 116.%2, 39.54\r\n").arg(i).arg(i % 50 + 10);
    EXPECT_EQ(同系坐标转换(多, 设置(0), QString()).点数, 200);
    struct { const char* 键; const char* 名; } 名表[] = {
        {"XA", "西安80"}, {"WGS", "中国WGS84"}, {"wgsn", "WGS84 -N"}, {"WGSS", "WGS84 -S"}, {"UTMN", "UTM-WGS -N"},
        {" UTMS", "UTM-WGS -S"}, {"X", ""},
    };
    for (const auto& n : 名表) EXPECT_EQ(坐标系名称(n.键), QString::fromUtf8(n.名)) << n.键;
}

TEST(定带坐标转换, 链与带号) {
    交互记录作用域 记录;
    // Latitude/longitude to 3-degree: the worked point with its zone number.
    auto r = 定带坐标转换(QString::fromUtf8("A, 116.24, 39.54\r\n"), 0, 3, 设置(0), QString());
    ASSERT_TRUE(r.已转换);
    EXPECT_EQ(r.右文本, QString::fromUtf8("*** 三度带 北京54\r\nA , 39448687.997 , 4418676.150\r\n\r\n"));
    // 3-degree (Y typed without its zone: 117 gives 39) to latitude/longitude.
    r = 定带坐标转换(QString::fromUtf8("A, 448687.997, 4418676.150\r\n"), 3, 0, 设置(1), QString());
    EXPECT_TRUE(r.左文本.startsWith(QString::fromUtf8("┈┈ 三度带 39\r\n")));
    EXPECT_EQ(r.右文本.split("\r\n")[1], QString::fromUtf8("A , 116°24′00″ , 39°54′00″"));
    // 3-degree to 6-degree equals the direct 6-degree conversion.
    r = 定带坐标转换(QString::fromUtf8("A, 39448687.997, 4418676.150\r\n"), 3, 6, 设置(2), QString());
    double B = 39.54, L = 116.24;
    经纬度转六度带(B, L, 117, "BJ");
    EXPECT_EQ(r.右文本.split("\r\n")[1], "A , " + 格式东坐标(L) + " , " + 格式北坐标(B));
    EXPECT_EQ(std::trunc(L / 1000000), 20);
    // A failing inverse shows zeros and its own note only.
    r = 定带坐标转换(QString::fromUtf8("A, -5, 4418676.150\r\n"), 6, 3, 设置(2), QString());  // no zone put in front
    EXPECT_EQ(r.右文本.split("\r\n")[1],
              QString::fromUtf8("A , 00000000.000 , 0000000.000错误?原始六度带坐标 Y<01001000 超出常规范围!"));
    // Nothing to do between equal or unknown widths.
    EXPECT_FALSE(定带坐标转换("A, 1, 2", 3, 3, 设置(2), QString()).已转换);
    EXPECT_FALSE(定带坐标转换("A, 1, 2", 2, 3, 设置(2), QString()).已转换);
}

// ===========================================================================
// Hostile input: junk bytes, huge lines, long lists and extreme numbers.
// Nothing may crash or hang, and a point that fails shows zeros and a note.

namespace {

QString 随机文本(std::mt19937& rng, int 长) {
    // Mostly the characters a list is made of, with junk mixed in.
    static const char16_t 常用[] = u"0123456789.,,,-+ \r\n\t°′″ED甲，．＋－１";
    std::uniform_int_distribution<int> 选(0, 9), 常(0, static_cast<int>(std::size(常用)) - 2),
        任(0, 0xFFFF);
    QString s;
    s.reserve(长);
    for (int i = 0; i < 长; ++i) s += 选(rng) < 8 ? QChar(常用[常(rng)]) : QChar(char16_t(任(rng)));
    return s;
}

// Every row of a right box: a note that begins with 错误 means zeros.
void 检查成果行(const QString& 右, int 模式) {
    for (const QString& 行 : 右.split("\r\n")) {
        const qsizetype k = 行.indexOf(QStringLiteral("错误"));
        if (k < 0) continue;
        // name , first value , second value [, height] then the note
        const QStringList 字段 = 行.left(k).split(QStringLiteral(" , "));
        ASSERT_GE(字段.size(), 3) << 行.toStdString();
        for (int f = 1; f <= 2; ++f)
            for (QChar c : 字段[f])
                if (c.isDigit()) {
                    ASSERT_EQ(c, QChar(u'0')) << 模式 << ": " << 行.toStdString();
                }
    }
}

}  // namespace

TEST(恶意输入, 随机文本) {
    交互记录作用域 记录;
    std::mt19937 rng(4242);
    std::uniform_int_distribution<int> 长(0, 4000);
    for (int i = 0; i < 100; ++i) {
        const QString s = 随机文本(rng, 长(rng));
        for (int 模式 = 0; 模式 < 3; ++模式) {
            坐标转换设置 设{};
            设.OptionA = 模式;
            设.右中央子午线 = 模式 == 2 ? 120 : 117;
            const auto r = 同系坐标转换(s, 设, QString());
            检查成果行(r.右文本, 模式);
            EXPECT_LE(r.点数, 200);
        }
        清除计算状态();
        序号坐标拆分(s.left(300), i % 2 == 0);
    }
}

TEST(恶意输入, 极端数值的点) {
    交互记录作用域 记录;
    QString s;
    const char* 值[] = {"1e308", "-1e-320", "9e15", "-0", "179.5959", "-90", "180", "1E+400", "20002200", "-3.6e5"};
    for (const char* a : 值)
        for (const char* b : 值) s += QString("P, %1, %2, %1\r\n").arg(a, b);
    for (int 模式 = 0; 模式 < 3; ++模式) {
        坐标转换设置 设{};
        设.OptionA = 模式;
        设.点数上限 = 0;
        const auto r = 同系坐标转换(s, 设, QString());
        检查成果行(r.右文本, 模式);
        EXPECT_FALSE(r.右文本.contains("nan", Qt::CaseInsensitive));
        EXPECT_FALSE(r.右文本.contains("inf", Qt::CaseInsensitive));
    }
}

TEST(恶意输入, 转换过程的极端参数) {
    const double 坏[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), -1e308,
                         4.9e-324, -0.0, 89.99999999, -180, 60999000, 1001000, 239999000, 10002200, 33000000};
    for (const char* 键 : {"BJ", "UTMS"}) {
        设置椭球(键);
        for (double a : 坏)
            for (double b : 坏)
                for (double L0 : {117.0, std::nan(""), 1e300}) {
                    auto 查 = [&](const QString& n, double x, double y, const char* 名) {
                        if (n.startsWith(QStringLiteral("错误"))) {
                            EXPECT_EQ(x, 0) << 名 << " " << a << " " << b;
                            EXPECT_EQ(y, 0) << 名 << " " << a << " " << b;
                        } else {
                            EXPECT_TRUE(std::isfinite(x) && std::isfinite(y)) << 名 << " " << a << " " << b;
                        }
                    };
                    for (int w : {0, 1, 3, 6}) {
                        double x = a, y = b;
                        QString n = 度数转公里网(x, y, L0, static_cast<ZoneWidthCode>(w));
                        查(n, x, y, "度数转公里网");
                        x = a; y = b;
                        n = 公里网转度数(x, y, L0, static_cast<ZoneWidthCode>(w));
                        查(n, x, y, "公里网转度数");
                    }
                    using 定带 = QString (*)(double&, double&, double, const QString&);
                    for (定带 f : {经纬度转六度带, 经纬度转三度带, 经纬度转一点五度带}) {
                        double x = a, y = b;
                        const QString n = f(x, y, L0, 键);
                        查(n, x, y, "经纬度转定带");
                    }
                    using 反算 = QString (*)(double&, double&, const QString&);
                    for (反算 f : {六度带转经纬度, 三度带转经纬度, 一点五度带转经纬度}) {
                        double x = a, y = b;
                        const QString n = f(x, y, 键);
                        查(n, x, y, "定带转经纬度");
                    }
                }
    }
}

TEST(恶意输入, 大文本) {
    交互记录作用域 记录;
    // A 1 MB line of fields, and 1 MB without any separator.
    QString 长行;
    while (长行.size() < 1 << 20) 长行 += QStringLiteral("123.456,");
    int n = 0;
    CoordinateRow 组;
    QString 顺序 = "YXH", 带号;
    坐标文本解析(长行, n, 组, false, 顺序, 带号);
    EXPECT_EQ(n, 1);
    EXPECT_EQ(组.Y组[1], 123.456);
    n = 0;
    EXPECT_EQ(坐标文本解析(QString(1 << 20, u'7'), n, 组, false, 顺序, 带号),
              QString::fromUtf8("该字符串中没有发现坐标数据!!!"));
    // 20 000 lines, no limit.
    QString 多;
    for (int i = 0; i < 20000; ++i) 多 += QString("P%1,%2,4418676.15,12\n").arg(i).arg(400000 + i);
    n = 0;
    const QString r = 坐标文本解析(多, n, 组, false, 顺序, 带号);
    EXPECT_EQ(n, 20000);
    EXPECT_EQ(组.Y组[20000], 419999);
    EXPECT_EQ(r.count(QStringLiteral("\r\n")), 20000);
    坐标转换设置 设{};
    设.OptionA = 1;
    设.点数上限 = 0;
    const auto t = 同系坐标转换(多, 设, QString());
    EXPECT_EQ(t.点数, 20000);
    EXPECT_FALSE(t.右文本.contains(QStringLiteral("错误")));
}
