#include "shell/screens/common.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QFontDatabase>
#include <QMessageBox>
#include <QMouseEvent>
#include <QUrl>
#include <algorithm>

void 消息框交互::告知(const QString& 文本, const QString& 标题) {
    QMessageBox box(QMessageBox::Information, 标题, 文本, QMessageBox::Ok, QApplication::activeWindow());
    box.exec();
}

bool 消息框交互::询问(const QString& 文本, const QString& 标题) {
    QMessageBox box(QMessageBox::Question, 标题, 文本, QMessageBox::Yes | QMessageBox::No,
                    QApplication::activeWindow());
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

模态打开函数& 模态打开器() {
    static 模态打开函数 f = [](QDialog& d) { d.exec(); };
    return f;
}

void 模态打开(QDialog& d) { 模态打开器()(d); }

QString 等宽字体名() {
    static const QString 名 = [] {
        const QStringList 候选 = {QStringLiteral("Noto Sans Mono CJK SC"), QStringLiteral("Noto Sans Mono CJK TC"),
                                  QStringLiteral("Noto Sans Mono CJK JP")};
        const QStringList 已有 = QFontDatabase::families();
        for (const QString& c : 候选)
            if (已有.contains(c)) return c;
        return QString();
    }();
    return 名;
}

QFont 等宽字体(int 像素) {
    QFont f = 等宽字体名().isEmpty() ? QFontDatabase::systemFont(QFontDatabase::FixedFont) : QFont(等宽字体名());
    f.setStyleHint(QFont::Monospace);
    f.setPixelSize(std::max(8, 像素 + (像素 % 2)));
    f.setHintingPreference(QFont::PreferNoHinting);
    return f;
}

void 可点标签::mouseReleaseEvent(QMouseEvent* e) {
    if (e->button() == Qt::LeftButton && rect().contains(e->position().toPoint()) && 点击) 点击();
    QLabel::mouseReleaseEvent(e);
}

bool 桌面打开(const QString& 目标) {
    const QString t = 目标.trimmed();
    if (t.isEmpty()) return false;
    const QUrl u = QUrl::fromUserInput(t);
    if (t.contains(QStringLiteral("://")) || t.startsWith(QStringLiteral("mailto:")))
        return QDesktopServices::openUrl(QUrl(t));
    return QDesktopServices::openUrl(u.isLocalFile() ? u : QUrl::fromLocalFile(t));
}
