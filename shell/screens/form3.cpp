#include "shell/screens/form3.h"

#include "shell/calculator.h"
#include "shell/screens/common.h"
#include "shell/startup.h"
#include "shell/state.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

Form3::Form3(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("Form3"));
    setModal(true);
    setWindowTitle(QStringLiteral("内存变量"));

    auto* 外 = new QVBoxLayout(this);
    外->setContentsMargins(14, 12, 14, 12);
    外->setSpacing(8);
    auto* 说明 = new QLabel(计算器文本::内存变量提示, this);
    说明->setWordWrap(true);
    外->addWidget(说明);

    auto* 格 = new QGridLayout();
    格->setHorizontalSpacing(8);
    格->setVerticalSpacing(5);
    for (int i = 0; i < 9; ++i) {
        auto* l = new QLabel(QString(QChar(内存变量字母[i])) + QStringLiteral(" ="), this);
        l->setFont(等宽字体(16));
        框_[i] = new QLineEdit(this);
        框_[i]->setObjectName(QStringLiteral("Text%1").arg(i + 1));
        框_[i]->setFont(等宽字体(16));
        框_[i]->setMinimumWidth(420);
        格->addWidget(l, i, 0);
        格->addWidget(框_[i], i, 1);
    }
    外->addLayout(格);

    auto* 星 = new QLabel(QStringLiteral("******************************************"), this);
    星->setObjectName(QStringLiteral("Label11"));
    星->setAlignment(Qt::AlignCenter);
    外->addWidget(星);

    auto* 行 = new QHBoxLayout();
    auto 按钮 = [&](const char* 名, const char* 题) {
        auto* b = new QPushButton(QString::fromUtf8(题), this);
        b->setObjectName(QString::fromUtf8(名));
        b->setAutoDefault(false);
        b->setMinimumHeight(30);
        行->addWidget(b);
        return b;
    };
    connect(按钮("Command1", "全部为 1"), &QPushButton::clicked, this, [this] { 全为一(); });
    connect(按钮("Command2", "1 至 9"), &QPushButton::clicked, this, [this] { 一至九(); });
    connect(按钮("Command3", "应  用"), &QPushButton::clicked, this, [this] { 应用(); });
    connect(按钮("Command4", "关  闭"), &QPushButton::clicked, this, [this] { hide(); });
    外->addLayout(行);
    auto* f1 = new QShortcut(QKeySequence::HelpContents, this);
    connect(f1, &QShortcut::activated, this, [] { 打开帮助(); });
    刷新();
}

void Form3::showEvent(QShowEvent* e) {
    清除计算状态();
    刷新();
    QDialog::showEvent(e);
}

void Form3::显示(const QStringList& 文本) {
    for (int i = 0; i < 9; ++i) 框_[i]->setText(文本.value(i));
}

void Form3::刷新() { 显示(内存变量文本()); }

void Form3::全为一() {
    内存变量全为一();
    刷新();
}

void Form3::一至九() {
    内存变量一至九();
    刷新();
}

void Form3::应用() {
    QStringList t;
    for (auto* b : 框_) t << b->text();
    显示(应用内存变量(t));
}
