// Hostile input: junk bytes, huge lines, long lists and extreme numbers.
// Nothing may crash or hang, and a point that fails shows zeros and a note.
#include "geodesy/coordtext.h"
#include "geodesy/projection.h"
#include "geodesy/workbench.h"

#include "shell/interaction.h"
#include "shell/state.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

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
