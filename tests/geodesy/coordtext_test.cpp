// Cleaners, the list parser, the strict splitter and the result row, on the
// kind of lists surveyors paste; and the coordinate files they come in.
#include "geodesy/coordtext.h"
#include "geodesy/projection.h"

#include "numeric/rounding.h"
#include "numeric/textfile.h"
#include "tests/support/recording.h"
#include "geodesy/state.h"
#include "numeric/state.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

struct 解析结果 {
    QString 文本;
    int 个数;
    CoordinateRow 组;
    QString 顺序, 带号;
};

解析结果 解析(const QString& s, bool 角度 = false, QString 顺序 = "YXH", QString 带号 = "", int 上限 = 200,
              QString 分隔 = ",") {
    坐标状态.列表分隔符 = 分隔;
    解析结果 r;
    r.个数 = 上限;
    r.顺序 = 顺序;
    r.带号 = 带号;
    r.文本 = 坐标文本解析(s, r.个数, r.组, 角度, r.顺序, r.带号);
    坐标状态.列表分隔符 = ",";
    return r;
}

}  // namespace

TEST(字符规范, 替换表) {
    struct { const char* 入; const char* 出; } 表[] = {
        {"\r", ""}, {"\x01" "abc", ""}, {"a\u3000b", "a b"}, {"a         b", "a b"}, {"a           b", "a b"}, {"a  b", "a b"},
        {"―5", "-5"}, {"＋1", "+1"}, {"1·5", "1.5"}, {"1．5", "1.5"}, {"1，2", "1,2"}, {"＃＠＊＆／", "#@*&/"},
        {"１２３．４５", "123.45"}, {"甲乙", "甲乙"},
    };
    for (const auto& r : 表) EXPECT_EQ(字符规范(QString::fromUtf8(r.入)), QString::fromUtf8(r.出)) << r.入;
}

TEST(提取数字, 一个字段) {
    struct { const char* 入; const char* 出; } 表[] = {
        {"123.45米", "123.45"}, {"米123", ""}, {"1.5e3", "1500"}, {"", ""}, {"1.2.3", ""}, {"+7", "7"},
        {"12-3", ""}, {"E5", ""}, {"39.54 m", "39.54"}, {"007.50", "7.5"},
    };
    for (const auto& r : 表) EXPECT_EQ(提取数字(QString::fromUtf8(r.入)), QString::fromUtf8(r.出)) << r.入;
}

TEST(坐标文本解析, 空与无点) {
    auto r = 解析("   \r\n\r\n");
    EXPECT_EQ(r.个数, 0);
    EXPECT_EQ(r.文本, QString("没有发现坐标数据！"));
    r = 解析("说明文字\r\n只有一个值 12\r\n");
    EXPECT_EQ(r.个数, 0);
    EXPECT_EQ(r.文本, QString("该字符串中没有发现坐标数据!!!"));
}

TEST(坐标文本解析, 行尾与杂项) {
    // One list written with CR LF, LF and CR line ends, tabs, full-width
    // digits and commas, comments and blank lines.
    const char* 变体[] = {
        "# 控制点\r\nK1, 448687.997, 4418676.150, 43.2\r\n\r\n2,3\r\n",
        "# 控制点\nK1\t448687.997\t4418676.150\t43.2\n\n\n2\t3\n",
        "  # 控制点\rK1, ４４８６８７．９９７，4418676.150 , 43.2\r\r2 , 3",
    };
    for (const char* v : 变体) {
        const auto r = 解析(QString::fromUtf8(v));
        ASSERT_EQ(r.个数, 2) << v;
        EXPECT_EQ(r.组.序号组[1], QString("K1"));
        EXPECT_EQ(r.组.Y组[1], 448687.997);
        EXPECT_EQ(r.组.X组[1], 4418676.150);
        EXPECT_EQ(r.组.高程组[1], 43.2);
        EXPECT_EQ(r.组.序号组[2], QString("D002"));
        EXPECT_EQ(r.组.Y组[2], 2);
        EXPECT_EQ(r.组.X组[2], 3);
        EXPECT_EQ(r.组.高程组[2], 0);
        EXPECT_EQ(r.文本, QString::fromUtf8("┈┈ 有公里网数据 Y 小于1000错误！！！\r\n"
                                             "K1   , 448687.997 , 4418676.150 , 43.200\r\n"
                                             "D002 , 0002.000 , 0003.000\r\n"))
            << v;
    }
}

TEST(坐标文本解析, 角度与序号) {
    const QString s = QString::fromUtf8(
        "D01, 117°45′14.1234″, 39°39′26.0000″, 1200.5\r\n"
        "甲, 116.24, 39.54\r\n"
        "P3,, 39.5, 116\r\n"
        "117.3, 40\r\n");
    auto r = 解析(s, true);
    ASSERT_EQ(r.个数, 3);
    EXPECT_EQ(r.组.Y组[1], 117.45141234);  // YXH: longitude first
    EXPECT_EQ(r.组.X组[1], 39.3926);
    EXPECT_EQ(r.组.高程组[1], 1200.5);
    EXPECT_EQ(r.组.序号组[2], QString("甲"));
    EXPECT_EQ(r.组.X组[2], 39.54);
    EXPECT_EQ(r.组.序号组[3], QString("D003"));  // P3 skipped: its a is empty
    const QStringList 行 = r.文本.split("\r\n");
    EXPECT_EQ(行[0], QString::fromUtf8("D01  , 117°45′14.1234″ , 39°39′26″ , 1200.500"));
    EXPECT_EQ(行[1], QString::fromUtf8("甲   , 116°24′00″ , 39°54′00″"));  // width 2 padded to 4
    // XYH: the first value is X.
    r = 解析(QString::fromUtf8("A, 39.54, 116.24\r\n"), true, "xyh");
    EXPECT_EQ(r.顺序, QString("XYH"));
    EXPECT_EQ(r.组.X组[1], 39.54);
    EXPECT_EQ(r.组.Y组[1], 116.24);
    r = 解析("A, 39.54, 116.24\r\n", true, "HXY");
    EXPECT_EQ(r.顺序, QString("YXH"));
    // Range remarks: each in front, the last first; no point refused.
    r = 解析("A, 190, 95\r\nB, -200, -95\r\n", true);
    EXPECT_EQ(r.个数, 2);
    EXPECT_TRUE(r.文本.startsWith(QString::fromUtf8(
        "┈┈ 有经度数据小于-180度错误！！！\r\n┈┈ 有经度数据大于180度错误！！！\r\n"
        "┈┈ 有纬度数据小于-90度错误！！！\r\n┈┈ 有纬度数据大于90度错误！！！\r\n")));
}

TEST(坐标文本解析, 带号与上限) {
    struct { const char* 带号; const char* 规整; double Y; } 表[] = {
        {"5", "05", 5448687.997}, {"240", "", 448687.997}, {"-1", "", 448687.997}, {"abc", "", 448687.997},
        {"120.7", "120", 120448687.997},
    };
    for (const auto& t : 表) {
        const auto r = 解析("448687.997, 4418676.15\r\n", false, "YXH", t.带号);
        EXPECT_EQ(r.带号, QString(t.规整)) << t.带号;
        EXPECT_DOUBLE_EQ(r.组.Y组[1], t.Y) << t.带号;
    }
    // A Y that has its zone already, and angle mode, are left alone.
    EXPECT_EQ(解析("39448687.997, 4418676.15\r\n", false, "YXH", "20").组.Y组[1], 39448687.997);
    EXPECT_EQ(解析("116.24, 39.54\r\n", true, "YXH", "20").组.Y组[1], 116.24);
    // The 201st point is never seen.
    QString s;
    for (int i = 1; i <= 250; ++i) s += QString("P%1, %2, 4418676.15\r\n").arg(i).arg(400000 + i);
    auto r = 解析(s);
    EXPECT_EQ(r.个数, 200);
    EXPECT_EQ(r.组.序号组.size(), 201);
    EXPECT_EQ(r.组.序号组[200], QString("P200"));
    EXPECT_FALSE(r.文本.contains("P201"));
    r = 解析(s, false, "YXH", "", 0);  // no limit
    EXPECT_EQ(r.个数, 250);
    // A head line from an earlier run survives, below the remarks.
    r = 解析(QString::fromUtf8("*** 北京54 公里网（YXH）┈ ZWX = 117°00′00″ \r\nA, -5, 4418676.15\r\n"));
    EXPECT_EQ(r.文本, QString::fromUtf8("┈┈ 有公里网数据 Y 小于1000错误！！！\r\n"
                                         "*** 北京54 公里网（YXH）┈ ZWX = 117°00′00″\r\n"
                                         "A    , -0005.000 , 4418676.150\r\n"));
    // A separator of its own; TAB still reads as ",".
    r = 解析("A; 1; 2\r\nB\t3\t4\r\n", false, "YXH", "", 200, ";");
    EXPECT_EQ(r.个数, 1);
    EXPECT_EQ(r.组.X组[1], 2);
    EXPECT_EQ(r.文本.split("\r\n").last(), QString());
    EXPECT_TRUE(r.文本.contains("A    ; 0001.000 ; 0002.000"));
}

TEST(序号坐标拆分, 字段与过滤) {
    交互记录作用域 记录;
    清除计算状态();
    QString r = 序号坐标拆分(QString::fromUtf8("A1,100.5,200.25\r\nB2；1；2；3；4\r\n点C，－5。5,6"), true);
    EXPECT_EQ(记录.记录器.记录.size(), 1);  // "点" dropped, one word for it
    EXPECT_EQ(记录.记录器.文本列表().value(0),
              QString::fromUtf8("数据中存在无用的字符或汉字！已被自动清除，计算继续进行。"));
    const auto& st = 坐标状态;
    EXPECT_EQ(st.拆分序号.个数, 3);
    EXPECT_EQ(st.拆分序号.元素.value(1), QString("A1"));
    EXPECT_EQ(st.拆分序号.元素.value(3), QString("C"));
    EXPECT_EQ(st.拆分值1.元素.value(1), QString("100.5"));
    EXPECT_EQ(st.拆分值1.元素.value(3), QString("-5.5"));
    EXPECT_EQ(st.拆分值4.元素.value(2), QString("4"));
    EXPECT_EQ(st.拆分值4.个数, 1);
    EXPECT_EQ(st.拆分值3.个数, 1);
    EXPECT_FALSE(r.contains("原始坐标数据有误"));
    EXPECT_EQ(r, QString::fromUtf8(" A1,100.5,200.25\r\nB2,1,2,3,4\r\nC,-5.5,6 \r\n"));
    // Without the serial flag the first field is a value.
    r = 序号坐标拆分("1,2,3,4\r\n5,6", false);
    EXPECT_EQ(st.拆分值1.元素.value(1), QString("1"));
    EXPECT_EQ(st.拆分值4.元素.value(1), QString("4"));
    EXPECT_EQ(st.拆分值2.元素.value(2), QString("6"));
    // Too many fields, or a value that is no number, ends the pass.
    struct { const char* 入; bool 序号; } 坏[] = {{"1,2,3,4,5", false}, {"A,1,2,3,4,5", true}, {"A,1-2,3", true}};
    for (const auto& b : 坏) {
        清除计算状态();
        EXPECT_TRUE(序号坐标拆分(b.入, b.序号).endsWith(
            QString::fromUtf8("\r\n原始坐标数据有误，无法完成数据转换，请检查[序号]和[数据]。")))
            << b.入;
    }
    清除计算状态();
    EXPECT_EQ(序号坐标拆分(" 1 ", true), QString("1"));
}

TEST(结果行, 排列) {
    struct { const char* 名; int 宽; bool 序号; const char* 顺序; const char* 高程; const char* 附注; const char* 行; } 表[] = {
        {"A", 3, true, "YXH", "", "", "A   , Y , X\r\n"},
        {"A", 3, true, "XYH", "12.000", "", "A   , X , Y , 12.000\r\n"},
        {"甲", 4, true, "YXH", "0", "┄跨带 117°", "甲   , Y , X┄跨带 117°\r\n"},
        {"A", 3, false, "YXH", " 1.500", "", "Y , X ,  1.500\r\n"},
    };
    for (const auto& r : 表)
        EXPECT_EQ(结果行(QString::fromUtf8(r.名), r.宽, r.序号, r.顺序, "X", "Y", r.高程, QString::fromUtf8(r.附注)),
                  QString::fromUtf8(r.行)) << r.行;
    CoordinateRow 组;
    组.序号组 = QStringList{"", "P1", "控制点A", "B"};
    EXPECT_EQ(最宽序号宽度(组, 3), 7);
    EXPECT_EQ(最宽序号宽度(组, 1), 2);
}

// ===========================================================================
// Reading coordinate files in the encodings they come in.

TEST(文本文件, 编码识别) {
    const QString 北京 = QString::fromUtf8("北京,1,2\r\n");
    struct { QByteArray 字节; 文本编码 编码; QString 文本; } 表[] = {
        {QByteArray("\xe5\x8c\x97\xe4\xba\xac,1,2\r\n"), 文本编码::UTF8, 北京},
        {QByteArray("\xef\xbb\xbf\xe5\x8c\x97\xe4\xba\xac,1,2\r\n"), 文本编码::UTF8带BOM, 北京},
        {QByteArray("\xff\xfe\x17\x53\xac\x4e,\0001\000,\0002\000\r\000\n\000", 18), 文本编码::UTF16LE, 北京},
        {QByteArray("\xfe\xff\x53\x17\x4e\xac\000,\0001\000,\0002\000\r\000\n", 18), 文本编码::UTF16BE, 北京},
        // GBK: 北 B1B1, 京 BEA9; and 点 B5E3, full-width comma A3AC.
        {QByteArray("\xb1\xb1\xbe\xa9,1,2\r\n"), 文本编码::GB18030, 北京},
        {QByteArray("\xb5\xe3\xa3\xac" "1"), 文本编码::GB18030, QString::fromUtf8("点，1")},
        {QByteArray("plain,1,2\n"), 文本编码::UTF8, QString("plain,1,2\n")},
        {QByteArray(), 文本编码::UTF8, QString()},
        // Overlong and surrogate forms are no UTF-8.
        {QByteArray("\xc0\xaf"), 文本编码::GB18030, QString()},
        {QByteArray("\xed\xa0\x80"), 文本编码::GB18030, QString()},
    };
    for (const auto& t : 表) {
        文本编码 e{};
        const QString s = 解码文本字节(t.字节, &e);
        EXPECT_EQ(e, t.编码) << t.字节.toHex().toStdString();
        if (!t.文本.isEmpty() || t.字节.isEmpty()) { EXPECT_EQ(s, t.文本) << t.字节.toHex().toStdString(); }
    }
}

TEST(文本文件, 写读往返与失败) {
    QTemporaryDir d;
    ASSERT_TRUE(d.isValid());
    const QString p = d.filePath("坐标.txt");
    const QString s = QString::fromUtf8("*** 北京54\r\n甲 , 1 , 2\r\n");
    ASSERT_TRUE(写入文本文件(p, s));
    QString r;
    文本编码 e{};
    ASSERT_TRUE(读取文本文件(p, r, &e));
    EXPECT_EQ(r, s);
    EXPECT_EQ(e, 文本编码::UTF8);
    r = "untouched";
    EXPECT_FALSE(读取文本文件(d.filePath("none.txt"), r));
    EXPECT_EQ(r, QString("untouched"));
    EXPECT_FALSE(写入文本文件(d.filePath("no/such/dir/x.txt"), s));
}
