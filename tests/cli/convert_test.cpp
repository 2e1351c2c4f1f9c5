// orvane-cli convert, run as a process on small lists.
#include <QProcess>
#include <QTemporaryDir>
#include <QFile>

#include <gtest/gtest.h>

namespace {

struct 运行结果 {
    int 状态 = -1;
    QString 出, 错;
};

运行结果 运行(const QStringList& 参数, const QByteArray& 输入 = QByteArray()) {
    QProcess p;
    p.start(QStringLiteral(ORVANE_CLI), QStringList{"convert"} + 参数);
    运行结果 r;
    if (!p.waitForStarted(10000)) return r;
    p.write(输入);
    p.closeWriteChannel();
    if (!p.waitForFinished(30000)) { p.kill(); return r; }
    r.状态 = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    r.出 = QString::fromUtf8(p.readAllStandardOutput());
    r.错 = QString::fromUtf8(p.readAllStandardError());
    return r;
}

const QByteArray 经纬度表 = QByteArray("D01, 116\xc2\xb0" "24\xe2\x80\xb2" "00\xe2\x80\xb3, 39.54, 50.5\n"
                                       "\xe5\x8c\x97\xe4\xba\xac, 116.24, 39.54\n");

}  // namespace

TEST(命令行转换, 默认经纬度到公里网) {
    const auto r = 运行({}, 经纬度表);
    ASSERT_EQ(r.状态, 0) << r.错.toStdString();
    EXPECT_EQ(r.出, QString::fromUtf8("*** 北京54 公里网（YXH）┈ ZWX = 117°00′00″ \r\n"
                                      "D01  , 00448687.997 , 4418676.150 , 50.500\r\n"
                                      "北京 , 00448687.997 , 4418676.150\r\n\r\n"));
    EXPECT_TRUE(r.错.startsWith(QString::fromUtf8("┈┈ 经纬度 北京54 坐标系 ┈┈YXH ┈┈\r\n")));
}

TEST(命令行转换, 选项) {
    QTemporaryDir d;
    ASSERT_TRUE(d.isValid());
    const QString 文件 = d.filePath("gbk.txt");
    {
        QFile f(文件);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        // GBK: 甲 BCD7; separator ";"; XY order.
        f.write("\xbc\xd7;4418676.150;448687.997\r\n");
    }
    struct { QStringList 参数; int 状态; const char* 含; } 表[] = {
        {{"--mode", "xy2bl", "--separator", ";", "--in-order", "XYH", 文件}, 0, "甲 , 116°24′00″ , 39°54′00″\r\n"},
        {{"--mode", "xy2bl", "--separator", ";", "--in-order", "XYH", "--out-order", "XYH", "--no-names", 文件}, 0,
         "\r\n39°54′00″ , 116°24′00″\r\n"},
        {{"--mode", "xy2xy", "--separator", ";", "--in-order", "XYH", "--right", "120", 文件}, 0, "ZWX = 120°00′00″"},
        {{"--mode", "xy2xy", "--separator", ";", "--in-order", "XYH", "--right", "122", 文件}, 1, ""},
        {{"--system", "2k", "--mode", "xy2bl", "--separator", ";", "--in-order", "XYH", 文件}, 0, "*** 国家2000 经纬度"},
        {{"--system", "UTMN", "--mode", "xy2xy", 文件}, 2, ""},
        {{"--system", "GK", 文件}, 2, ""},
        {{"--mode", "x", 文件}, 2, ""},
        {{"--left", "abc", 文件}, 2, ""},
        {{"--in-order", "HXY", 文件}, 2, ""},
        {{"--limit", "-1", 文件}, 2, ""},
        {{"--bogus"}, 2, ""},
        {{d.filePath("none.txt")}, 2, ""},
        {{"--mode", "bl2xy", 文件}, 1, ""},
    };
    for (const auto& t : 表) {
        const auto r = 运行(t.参数);
        EXPECT_EQ(r.状态, t.状态) << t.参数.join(' ').toStdString() << "\n" << r.错.toStdString();
        if (*t.含) EXPECT_TRUE(r.出.contains(QString::fromUtf8(t.含))) << t.参数.join(' ').toStdString() << "\n"
                                                                     << r.出.toStdString();
    }
    // The refusal of a far zone change is told on stderr.
    const auto r = 运行({"--mode", "xy2xy", "--separator", ";", "--in-order", "XYH", "--right", "122", 文件});
    EXPECT_TRUE(r.错.contains(QString::fromUtf8("两侧的中央子午线差值不能大于4度")));
    // --limit, and the half-degree meridian 70°30′.
    QByteArray 多;
    for (int i = 0; i < 5; ++i) 多 += "P" + QByteArray::number(i) + ",70.30,40\n";
    auto t = 运行({"--limit", "3", "--right", "70.30"}, 多);
    EXPECT_EQ(t.出.count(QStringLiteral("00500000.000")), 3);
    EXPECT_TRUE(t.出.contains(QString::fromUtf8("ZWX = 70°30′00″")));
    t = 运行({"--help"});
    EXPECT_EQ(t.状态, 0);
    EXPECT_TRUE(t.出.contains("--separator"));
}
