#include "shell/screens/form1.h"

#include "library/access.h"
#include "shell/screens/common.h"
#include "shell/screens/form3.h"
#include "shell/startup.h"
#include "shell/state.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTextBlock>
#include <QVBoxLayout>

namespace {

// The panel in four groups; each list gives the button numbers in reading
// order and the group's column count. Every number 1..60 appears once.
struct 面板组 { const char* 标题; int 列; std::initializer_list<int> 按钮; };
const 面板组 面板分组[] = {
    {"数字", 3, {7, 8, 9, 4, 5, 6, 1, 2, 3, 10, 11, 21}},
    {"运算", 3, {12, 13, 14, 15, 16, 17, 18, 19, 20, 22, 23, 24, 25, 26, 27, 49, 50}},
    {"函数", 4, {29, 30, 28, 31, 32, 33, 34, 35, 36, 37, 38, 41, 42, 43, 44, 45, 46, 47, 48}},
    {"常数与内存变量", 3, {39, 40, 60, 51, 52, 53, 54, 55, 56, 57, 58, 59}},
};
constexpr int 面板分组按钮总数() { return 12 + 17 + 19 + 12; }
static_assert(面板分组按钮总数() == 面板按钮数);

const QString 未提供 = QStringLiteral("此功能模块尚未提供。");

// The result line: dark blue for a value, dark red for a failure text.
QString 结果样式(bool 成功) {
    return 成功 ? QStringLiteral("QLineEdit { background: #f6f8fb; color: #0b2e59; padding: 4px; }")
                : QStringLiteral("QLineEdit { background: #fdf3f2; color: #9b1c14; padding: 4px; }");
}

QString 小数位项(int i) {
    if (i < 10) return QStringLiteral("%1 位小数").arg(i);
    if (i < 28) return QStringLiteral("%1位小数").arg(i);
    return QStringLiteral("28位小数!");
}

}  // namespace

Form1::Form1(QWidget* parent) : QDialog(parent), 存储_(std::make_unique<算式存储>()) {
    setObjectName(QStringLiteral("Form1"));
    setModal(true);

    auto* 外 = new QVBoxLayout(this);
    外->setContentsMargins(12, 10, 12, 12);
    外->setSpacing(8);

    auto 标签 = [this](const char* t) {
        auto* l = new QLabel(QString::fromUtf8(t), this);
        l->setMinimumWidth(40);
        l->setAlignment(Qt::AlignRight | Qt::AlignTop);
        return l;
    };

    // Expression, result, status.
    auto* 表 = new QGridLayout();
    表->setHorizontalSpacing(8);
    表->setVerticalSpacing(6);
    text1_ = new QPlainTextEdit(this);
    text1_->setObjectName(QStringLiteral("Text1"));
    text1_->setToolTip(计算器文本::提示Text1);
    text1_->setFont(等宽字体(16));
    text1_->setFixedHeight(text1_->fontMetrics().lineSpacing() * 3 + 14);
    text1_->installEventFilter(this);
    text1_->setTabChangesFocus(true);
    表->addWidget(标签("算式"), 0, 0);
    表->addWidget(text1_, 0, 1);

    text2_ = new QLineEdit(this);
    text2_->setObjectName(QStringLiteral("Text2"));
    text2_->setToolTip(计算器文本::提示Text2);
    text2_->setReadOnly(true);
    text2_->setFont(等宽字体(18));
    text2_->setStyleSheet(结果样式(true));
    表->addWidget(标签("结果"), 1, 0, Qt::AlignVCenter);
    表->addWidget(text2_, 1, 1);

    text3_ = new QPlainTextEdit(this);
    text3_->setObjectName(QStringLiteral("Text3"));
    text3_->setToolTip(计算器文本::提示Text3);
    text3_->setReadOnly(true);
    text3_->setFixedHeight(text3_->fontMetrics().lineSpacing() * 3 + 14);
    text3_->setStyleSheet(QStringLiteral("QPlainTextEdit { background: #fbfaf4; color: #4a3b12; }"));
    表->addWidget(标签("状态"), 2, 0);
    表->addWidget(text3_, 2, 1);
    外->addLayout(表);

    // Store, settings, compute.
    auto* 行 = new QHBoxLayout();
    行->setSpacing(6);
    行->addSpacing(48);
    auto 按钮 = [this](const char* 名, const QString& 标题, QLayout* 放, const QString& 提示 = QString()) {
        auto* b = new QPushButton(标题, this);
        b->setObjectName(QString::fromUtf8(名));
        b->setAutoDefault(false);
        b->setMinimumHeight(30);
        if (!提示.isEmpty()) b->setToolTip(提示);
        放->addWidget(b);
        return b;
    };
    auto* 序号标签 = new QLabel(QStringLiteral("序号"), this);
    行->addWidget(序号标签);
    text4_ = new QLineEdit(this);
    text4_->setObjectName(QStringLiteral("Text4"));
    text4_->setToolTip(计算器文本::提示Text4);
    text4_->setReadOnly(true);
    text4_->setAlignment(Qt::AlignCenter);
    text4_->setFixedWidth(56);
    行->addWidget(text4_);
    connect(按钮("dcButton11", QStringLiteral("◀ 前一个"), 行, 计算器文本::提示dcButton11), &QPushButton::clicked,
            this, [this] { 前一个(); });
    connect(按钮("dcButton12", QStringLiteral("后一个 ▶"), 行, 计算器文本::提示dcButton12), &QPushButton::clicked,
            this, [this] { 后一个(); });
    connect(按钮("dcButton9", QStringLiteral("存储并清除"), 行, QStringLiteral("将当前算式存入算式表，并清空")),
            &QPushButton::clicked, this, [this] { 存储(); });
    行->addSpacing(12);
    combo1_ = new QComboBox(this);
    combo1_->setObjectName(QStringLiteral("Combo1"));
    combo1_->setToolTip(计算器文本::提示Combo1);
    for (int i = 0; i <= 28; ++i) combo1_->addItem(小数位项(i));
    combo1_->setMaxVisibleItems(15);
    行->addWidget(combo1_);
    command5_ = 按钮("Command5", 角度单位标题(60), 行, 计算器文本::提示Command5);
    command5_->setMinimumWidth(110);
    connect(command5_, &QPushButton::clicked, this, [this] { 切换角度单位(); });
    connect(按钮("dcButton13", QStringLiteral("角度说明"), 行), &QPushButton::clicked, this,
            [this] { text3_->setPlainText(计算器文本::角度说明); });
    connect(按钮("dcButton14", QStringLiteral("内存变量"), 行, 计算器文本::内存变量提示), &QPushButton::clicked, this,
            [this] { 打开内存变量(); });
    行->addStretch(1);
    auto* 算 = 按钮("dcButton10", QStringLiteral("计  算  ="), 行, QStringLiteral("计算（回车键）"));
    算->setMinimumWidth(140);
    算->setMinimumHeight(36);
    {
        QFont f = 算->font();
        f.setBold(true);
        f.setPointSize(f.pointSize() + 2);
        算->setFont(f);
    }
    算->setStyleSheet(QStringLiteral("QPushButton { background: #2f6db5; color: white; border-radius: 4px; padding: 4px 16px; }"
                                     "QPushButton:pressed { background: #24578f; }"));
    connect(算, &QPushButton::clicked, this, [this] { 计算(); });
    外->addLayout(行);

    // The panel.
    auto* 面板 = new QHBoxLayout();
    面板->setSpacing(10);
    for (const auto& g : 面板分组) {
        auto* 组 = new QGroupBox(QString::fromUtf8(g.标题), this);
        auto* 格 = new QGridLayout(组);
        格->setSpacing(4);
        格->setContentsMargins(8, 6, 8, 8);
        int k = 0;
        for (int n : g.按钮) {
            auto* b = new QPushButton(面板按钮标题(n), 组);
            b->setObjectName(QStringLiteral("HmBut%1").arg(n));
            b->setAutoDefault(false);
            b->setFocusPolicy(Qt::NoFocus);  // the caret stays in Text1
            b->setMinimumWidth(58);
            b->setFixedHeight(38);
            b->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
            const QString h = 面板按钮帮助(n);
            if (!h.isEmpty()) b->setToolTip(h);
            connect(b, &QPushButton::clicked, this, [this, n] { 面板按下(n); });
            格->addWidget(b, k / g.列, k % g.列);
            ++k;
        }
        // Groups of fewer rows stay at the top, their buttons as tall as the others.
        格->setRowStretch(格->rowCount(), 1);
        面板->addWidget(组, g.列);
    }
    外->addLayout(面板, 1);

    // Other tools.
    auto* 工具 = new QHBoxLayout();
    工具->setSpacing(6);
    const std::pair<const char*, const char*> 工具按钮[] = {
        {"dcButton1", "数理统计"}, {"dcButton2", "角度变换"}, {"dcButton3", "进制换算"},
        {"dcButton5", "积分计算"}, {"dcButton6", "排列组合"}, {"dcButton7", "累计求和"},
    };
    for (const auto& [名, 题] : 工具按钮) {
        auto* b = 按钮(名, QString::fromUtf8(题), 工具, 未提供);
        b->setEnabled(false);
    }
    工具->addStretch(1);
    connect(按钮("dcButton4", QStringLiteral("官方网站"), 工具), &QPushButton::clicked, this,
            [] { 打开链接(公共.程序.官网地址); });
    connect(按钮("dcButton8", QStringLiteral("软件升级"), 工具), &QPushButton::clicked, this,
            [] { 打开链接(公共.程序.主页地址); });
    外->addLayout(工具);

    auto* f1 = new QShortcut(QKeySequence::HelpContents, this);
    connect(f1, &QShortcut::activated, this, [] { 打开帮助(); });

    // Opening: the use count, the angle unit, R..Z = 1..9, the samples.
    const int 次 = 累加使用数(QStringLiteral("dcButJiSuan"));
    if (次 > 0) 公共.程序.计算次数 = 次;
    setWindowTitle(公共.程序.计算次数 > 0
                       ? QStringLiteral("%1 — 科学计算器（第 %2 次使用）").arg(公共.程序.软件标题).arg(公共.程序.计算次数)
                       : 公共.程序.软件标题 + QStringLiteral(" — 科学计算器"));
    计算器初始化();
    command5_->setText(角度单位标题(计算状态.角度单位));
    填入示例(*存储_);
    combo1_->setCurrentIndex(std::clamp(计算状态.输出小数位数, 0, 28));
    connect(combo1_, &QComboBox::currentIndexChanged, this, [](int i) {
        if (i >= 0) 计算状态.输出小数位数 = i;  // the number at the head of the item
    });
    text3_->setPlainText(计算器文本::角度说明);
    text1_->setFocus();
    resize(1040, sizeHint().height());
}

Form1::~Form1() = default;

bool Form1::eventFilter(QObject* o, QEvent* e) {
    if (o == text1_ && e->type() == QEvent::KeyPress) {
        const auto* k = static_cast<QKeyEvent*>(e);
        if (k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter) {
            计算();
            return true;
        }
    }
    return QDialog::eventFilter(o, e);
}

void Form1::计算() {
    text2_->setStyleSheet(结果样式(true));
    text2_->setText(计算器文本::正在计算);
    text3_->setPlainText(计算器文本::核对提示);
    text2_->repaint();
    text3_->repaint();
    const 计算显示 d = 计算器计算(text1_->toPlainText(), 当前输出设置());
    text1_->setPlainText(d.算式);
    text2_->setStyleSheet(结果样式(d.成功));
    text2_->setText(d.结果);
    text2_->setCursorPosition(0);
    if (!d.状态.isEmpty()) text3_->setPlainText(d.状态);
    QTextCursor c = text1_->textCursor();
    c.movePosition(QTextCursor::End);
    text1_->setTextCursor(c);
    text1_->setFocus();
}

void Form1::面板按下(int n) {
    if (n < 1 || n > 面板按钮数) return;
    const QString 帮助 = 面板按钮帮助(n);
    if (n == 50) {
        text2_->setText(科学计数按钮(text2_->text()));
        if (!帮助.isEmpty()) text3_->setPlainText(帮助);
        return;
    }
    const QTextCursor c = text1_->textCursor();
    const int 起 = c.selectionStart();
    const int 长 = c.selectionEnd() - c.selectionStart();
    const 插入结果 r = 面板插入(text1_->toPlainText(), 起, 长, n);
    text1_->setPlainText(r.文本);
    QTextCursor nc = text1_->textCursor();
    nc.setPosition(std::clamp(r.光标, 0, static_cast<int>(r.文本.size())));
    text1_->setTextCursor(nc);
    text2_->setStyleSheet(结果样式(true));
    text2_->clear();
    if (!帮助.isEmpty()) text3_->setPlainText(帮助);
    text1_->setFocus();
}

void Form1::切换角度单位() {
    计算状态.角度单位 = 下一个角度单位(计算状态.角度单位);
    command5_->setText(角度单位标题(计算状态.角度单位));
    text3_->setPlainText(计算器文本::角度混合提示);
}

void Form1::显示存储(const 存储显示& d) {
    text2_->setStyleSheet(结果样式(true));
    text1_->setPlainText(d.算式);
    text2_->setText(d.结果);
    text2_->setCursorPosition(0);
    text3_->setPlainText(d.状态);
    text4_->setText(d.序号 > 0 ? QString::number(d.序号) : QString());
    QTextCursor c = text1_->textCursor();
    c.movePosition(QTextCursor::End);
    text1_->setTextCursor(c);
}

void Form1::存储() { 显示存储(存储并清除(*存储_, text1_->toPlainText())); }
void Form1::前一个() { 显示存储(前一个算式(*存储_)); }
void Form1::后一个() { 显示存储(后一个算式(*存储_)); }

void Form1::打开内存变量() {
    if (!form3_) form3_ = std::make_unique<Form3>(this);
    模态打开(*form3_);
}
