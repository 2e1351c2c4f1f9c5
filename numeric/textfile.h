// Reading and writing the text files of coordinate lists and results.
// Files come from anywhere: Windows tools in GBK, spreadsheets in UTF-16,
// editors in UTF-8 with or without a byte-order mark. Writing is always
// UTF-8 without a mark.
#pragma once

#include <QByteArray>
#include <QString>

enum class 文本编码 { UTF8, UTF8带BOM, UTF16LE, UTF16BE, GB18030 };

// Decodes bytes: a UTF-8 BOM, UTF-16 LE/BE BOM is honoured and removed;
// otherwise valid UTF-8 is UTF-8, and anything else is read as GB18030 (a
// superset of GBK and GB2312). Bytes that are valid in neither become
// U+FFFD. 编码, when given, receives what was detected. Never fails.
QString 解码文本字节(const QByteArray& 字节, 文本编码* 编码 = nullptr);

// Reads a whole file by 解码文本字节. False (and 文本 untouched) when the
// file cannot be opened or read.
bool 读取文本文件(const QString& 路径, QString& 文本, 文本编码* 编码 = nullptr);

// Writes 文本 as UTF-8, replacing the file. False when it cannot be written.
bool 写入文本文件(const QString& 路径, const QString& 文本);
