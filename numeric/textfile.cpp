#include "numeric/textfile.h"

#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>

namespace {

// Strict UTF-8 check (RFC 3629: no overlongs, no surrogates, nothing above
// U+10FFFF). Qt's decoder is lenient about some of these, and a GBK file
// must not pass for UTF-8 by luck.
bool 是有效UTF8(const QByteArray& b) {
    const auto* p = reinterpret_cast<const unsigned char*>(b.constData());
    const qsizetype n = b.size();
    qsizetype i = 0;
    while (i < n) {
        const unsigned char c = p[i];
        if (c < 0x80) { ++i; continue; }
        int len;
        unsigned lo = 0x80, hi = 0xBF;
        if (c >= 0xC2 && c <= 0xDF) len = 2;
        else if (c == 0xE0) { len = 3; lo = 0xA0; }
        else if (c >= 0xE1 && c <= 0xEC) len = 3;
        else if (c == 0xED) { len = 3; hi = 0x9F; }
        else if (c >= 0xEE && c <= 0xEF) len = 3;
        else if (c == 0xF0) { len = 4; lo = 0x90; }
        else if (c >= 0xF1 && c <= 0xF3) len = 4;
        else if (c == 0xF4) { len = 4; hi = 0x8F; }
        else return false;
        if (i + len > n) return false;
        if (p[i + 1] < lo || p[i + 1] > hi) return false;
        for (int k = 2; k < len; ++k)
            if (p[i + k] < 0x80 || p[i + k] > 0xBF) return false;
        i += len;
    }
    return true;
}

QString 按编码解码(const QByteArray& b, QStringConverter::Encoding enc) {
    QStringDecoder d(enc, QStringConverter::Flag::Stateless);
    return d.decode(b);
}

}  // namespace

QString 解码文本字节(const QByteArray& 字节, 文本编码* 编码) {
    auto 设 = [&](文本编码 e) { if (编码) *编码 = e; };
    if (字节.startsWith("\xEF\xBB\xBF")) {
        设(文本编码::UTF8带BOM);
        return 按编码解码(字节.mid(3), QStringConverter::Utf8);
    }
    if (字节.startsWith("\xFF\xFE")) {
        设(文本编码::UTF16LE);
        return 按编码解码(字节.mid(2), QStringConverter::Utf16LE);
    }
    if (字节.startsWith("\xFE\xFF")) {
        设(文本编码::UTF16BE);
        return 按编码解码(字节.mid(2), QStringConverter::Utf16BE);
    }
    if (是有效UTF8(字节)) {
        设(文本编码::UTF8);
        return QString::fromUtf8(字节);
    }
    设(文本编码::GB18030);
    // Qt reaches GB18030 through ICU here; the decoder is checked once. A
    // build without it falls back to Latin-1, which never loses a byte.
    static const bool 有GB18030 = QStringDecoder("GB18030").isValid();
    if (!有GB18030) return QString::fromLatin1(字节);
    QStringDecoder d("GB18030");
    return d.decode(字节);
}

bool 读取文本文件(const QString& 路径, QString& 文本, 文本编码* 编码) {
    QFile f(路径);
    if (!f.open(QIODevice::ReadOnly)) return false;
    const QByteArray b = f.readAll();
    if (f.error() != QFileDevice::NoError) return false;
    文本 = 解码文本字节(b, 编码);
    return true;
}

bool 写入文本文件(const QString& 路径, const QString& 文本) {
    QSaveFile f(路径);
    if (!f.open(QIODevice::WriteOnly)) return false;
    const QByteArray b = 文本.toUtf8();
    if (f.write(b) != b.size()) { f.cancelWriting(); return false; }
    return f.commit();
}
