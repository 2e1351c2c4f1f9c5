// What the screens share: the message-box implementation of the ask/tell
// callback, the modal opening of a screen, the fonts, and a label that
// reacts to a click.
#pragma once

#include "numeric/interaction.h"

#include <QFont>
#include <QLabel>
#include <QString>
#include <functional>

class QDialog;
class QWidget;

// 交互() implemented with QMessageBox: 告知 is an information box with OK,
// 询问 a question box with Yes/No (No the default). The parent is the
// active window, so the box stays over the screen that asked.
class 消息框交互 : public 交互接口 {
public:
    void 告知(const QString& 文本, const QString& 标题 = QString()) override;
    bool 询问(const QString& 文本, const QString& 标题 = QString()) override;
};

// How a screen is opened modally: exec() in the program. Tests replace it
// (show() and return) so that a handler that opens a screen does not block.
using 模态打开函数 = std::function<void(QDialog&)>;
模态打开函数& 模态打开器();
void 模态打开(QDialog& d);

// The monospaced font of result lines: a CJK face in which a Chinese
// character is exactly two columns wide, so that "约数" and the digits line
// up. Falls back to the system's fixed font when it is missing. The size is
// in pixels and made even: the face's half-width advance is half an em, so
// only an even em gives whole pixels for both widths (at 13 pt a Chinese
// character came out 17 pixels against two digits of 8).
QFont 等宽字体(int 像素 = 16);

// The family name of that face, "" when it is not installed.
QString 等宽字体名();

// A label that calls 点击 on a left click (LabelTop, LabelShuoMing,
// ImageLogo). No moc: the callback is a plain std::function.
class 可点标签 : public QLabel {
public:
    explicit 可点标签(QWidget* parent = nullptr) : QLabel(parent) {}
    std::function<void()> 点击;

protected:
    void mouseReleaseEvent(QMouseEvent* e) override;
};

// The desktop opener for 打开链接: an address (scheme://, mailto:) goes to
// QDesktopServices as it is, anything else as a local file.
bool 桌面打开(const QString& 目标);
