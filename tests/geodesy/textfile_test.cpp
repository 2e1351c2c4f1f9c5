// Reading coordinate files in the encodings they come in.
#include "numeric/textfile.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

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
