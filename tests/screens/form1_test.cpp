// The calculator and the memory variables, driven through their widgets;
// and hostile input and every button of the calculator and the menu.
#include "fixture.h"

#include "shell/calculator.h"
#include "shell/screens/common.h"
#include "shell/screens/form1.h"
#include "shell/screens/form2.h"
#include "shell/screens/form3.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

class 计算器夹具 : public 程序夹具 {
protected:
    std::unique_ptr<Form1> 屏;
    QPlainTextEdit* text1 = nullptr;
    QLineEdit* text2 = nullptr;
    QPlainTextEdit* text3 = nullptr;

    void SetUp() override {
        程序夹具::SetUp();
        带库启动();
        屏 = std::make_unique<Form1>();
        text1 = 控件<QPlainTextEdit>(*屏, QStringLiteral("Text1"));
        text2 = 控件<QLineEdit>(*屏, QStringLiteral("Text2"));
        text3 = 控件<QPlainTextEdit>(*屏, QStringLiteral("Text3"));
        ASSERT_TRUE(text1 && text2 && text3);
    }
    void TearDown() override {
        屏.reset();
        程序夹具::TearDown();
    }
    void 小数位(int n) { 控件<QComboBox>(*屏, QStringLiteral("Combo1"))->setCurrentIndex(n); }
    void 输入并计算(const QString& 算式) {
        text1->setPlainText(算式);
        点击(*屏, QStringLiteral("dcButton10"));
    }
    // The result line without its alignment: the leading blanks and the
    // fill of "_" or blanks go, and a run of blanks inside (behind the
    // mark "约数") counts as one.
    QString 结果() const { return 去对齐(text2->text()); }
    static QString 去对齐(QString r) {
        while (!r.isEmpty() && (r.endsWith(u'_') || r.endsWith(u' '))) r.chop(1);
        if (r.endsWith(u'.')) r.chop(1);
        return r.simplified();
    }
    void 角度单位到(int 单位) {
        for (int i = 0; i < 3 && 计算状态.角度单位 != 单位; ++i) 点击(*屏, QStringLiteral("Command5"));
        ASSERT_EQ(计算状态.角度单位, 单位);
    }
};

}  // namespace

TEST_F(计算器夹具, OpeningStateAndCount) {
    EXPECT_EQ(使用数(QStringLiteral("dcButJiSuan")), 1);
    EXPECT_EQ(控件<QPushButton>(*屏, QStringLiteral("Command5"))->text(), QStringLiteral("度分秒.5959"));
    EXPECT_EQ(控件<QComboBox>(*屏, QStringLiteral("Combo1"))->currentText(), QStringLiteral("8 位小数"));
    EXPECT_EQ(控件<QComboBox>(*屏, QStringLiteral("Combo1"))->count(), 29);
    EXPECT_EQ(text3->toPlainText(), 计算器文本::角度说明);
    EXPECT_EQ(屏->存储区().数量, 18);
    for (int i = 1; i <= 60; ++i)
        EXPECT_NE(屏->findChild<QPushButton*>(QStringLiteral("HmBut%1").arg(i)), nullptr) << i;
}

TEST_F(计算器夹具, SamplesComputeAndColumnsLineUp) {
    // The point of a plain result and of one marked "约数" stand at the same
    // place on screen: the mark takes the room of four blanks, which holds
    // only where a Chinese character is exactly two columns of the font.
    const QFontMetrics m(text2->font());
    EXPECT_FALSE(等宽字体名().isEmpty()) << "the CJK monospaced font is not installed";
    EXPECT_EQ(m.horizontalAdvance(QStringLiteral("约数")), 4 * m.horizontalAdvance(u' '))
        << "font " << text2->font().family().toStdString();
    小数位(28);
    EXPECT_EQ(计算状态.输出小数位数, 28);
    QList<int> 点位;
    for (const auto& [式, 单位] : {std::pair{示例算式(1), 60}, std::pair{示例算式(17), 3},
                                   std::pair{QStringLiteral("-123456.5"), 60}}) {
        角度单位到(单位);
        输入并计算(式);
        const QString r = text2->text();
        ASSERT_GT(r.indexOf(u'.'), 0) << r.toStdString();
        点位 << m.horizontalAdvance(r.left(r.indexOf(u'.')));
        EXPECT_FALSE(text1->toPlainText().contains(QStringLiteral("示例"))) << "Text1 shows the tidy form";
        EXPECT_EQ(text1->textCursor().position(), text1->toPlainText().size()) << "caret at the end";
        if (点位.size() == 1) { EXPECT_EQ(结果(), QStringLiteral("2.4059120570021821219456683533")); }
    }
    EXPECT_TRUE(text2->text().contains(u'_'));
    EXPECT_EQ(点位[0], 点位[1]);
    EXPECT_EQ(点位[0], 点位[2]);
    角度单位到(3);
    输入并计算(示例算式(17));
    EXPECT_EQ(结果(), QStringLiteral("约数 479001558.464642617773159716"));
    EXPECT_TRUE(text3->toPlainText().contains(QStringLiteral("在运算中，某函数运算结果的有效数字较少")));
}

TEST_F(计算器夹具, EnterInTheExpressionBoxComputes) {
    text1->setPlainText(QString());
    text1->setFocus();
    for (QChar ch : QStringLiteral("6*7")) {
        QKeyEvent 按(QEvent::KeyPress, 0, Qt::NoModifier, QString(ch));
        QApplication::sendEvent(text1, &按);
    }
    EXPECT_EQ(text1->toPlainText(), QStringLiteral("6*7"));
    QKeyEvent 回车(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    QApplication::sendEvent(text1, &回车);
    EXPECT_EQ(结果(), QStringLiteral("42"));
    EXPECT_FALSE(text1->toPlainText().contains(u'\n'));
}

TEST_F(计算器夹具, MemoryScreenOneToNineThenSample18) {
    点击(*屏, QStringLiteral("dcButton14"));
    Form3* 内存 = 屏->内存变量屏();
    ASSERT_NE(内存, nullptr);
    EXPECT_TRUE(内存->isVisible());
    点击(*内存, QStringLiteral("Command1"));
    for (int i = 1; i <= 9; ++i) EXPECT_EQ(控件<QLineEdit>(*内存, QStringLiteral("Text%1").arg(i))->text(), "1");
    小数位(0);
    输入并计算(示例算式(18));
    EXPECT_EQ(结果(), QStringLiteral("1"));

    点击(*内存, QStringLiteral("Command2"));
    for (int i = 1; i <= 9; ++i)
        EXPECT_EQ(控件<QLineEdit>(*内存, QStringLiteral("Text%1").arg(i))->text(), QString::number(i));
    输入并计算(示例算式(18));
    EXPECT_EQ(结果(), QStringLiteral("362880"));

    // Typed values go in through apply, read as numbers.
    auto* box = 控件<QLineEdit>(*内存, QStringLiteral("Text1"));
    box->setText(QStringLiteral("１．５"));
    点击(*内存, QStringLiteral("Command3"));
    EXPECT_EQ(box->text(), QStringLiteral("1.5"));
    点击(*内存, QStringLiteral("Command4"));
    EXPECT_FALSE(内存->isVisible());
}

TEST_F(计算器夹具, AngleUnitCycles) {
    auto* b = 控件<QPushButton>(*屏, QStringLiteral("Command5"));
    struct Step { int 单位; const char* 标题; };
    const Step steps[] = {{100, "百分度.9999"}, {3, "弧度角"}, {60, "度分秒.5959"}};
    for (const auto& s : steps) {
        b->click();
        EXPECT_EQ(计算状态.角度单位, s.单位);
        EXPECT_EQ(b->text(), QString::fromUtf8(s.标题));
        EXPECT_EQ(text3->toPlainText(), 计算器文本::角度混合提示);
    }
}

TEST_F(计算器夹具, StoreNavigationShowsSamplesAndTheirValues) {
    auto* text4 = 控件<QLineEdit>(*屏, QStringLiteral("Text4"));
    struct Step { const char* 按钮; int 序号; };
    const Step steps[] = {{"dcButton11", 17}, {"dcButton12", 18}, {"dcButton12", 1}};
    for (const auto& s : steps) {
        点击(*屏, QString::fromUtf8(s.按钮));
        EXPECT_EQ(text4->text(), QString::number(s.序号)) << s.按钮;
        EXPECT_EQ(text1->toPlainText(), 示例算式(s.序号));
        EXPECT_EQ(text2->text(), 示例预期(s.序号));
        EXPECT_EQ(text3->toPlainText(),
                  QString::fromUtf8(s.按钮) == QStringLiteral("dcButton11") ? 计算器文本::向前提示 : 计算器文本::向后提示);
    }
    // Storing a typed expression appends it and clears the boxes.
    text1->setPlainText(QStringLiteral("2^10"));
    点击(*屏, QStringLiteral("dcButton9"));
    EXPECT_EQ(text4->text(), QStringLiteral("19"));
    EXPECT_TRUE(text1->toPlainText().isEmpty());
    EXPECT_TRUE(text2->text().isEmpty());
    点击(*屏, QStringLiteral("dcButton11"));
    点击(*屏, QStringLiteral("dcButton12"));
    EXPECT_EQ(text1->toPlainText(), QStringLiteral("2^10"));
    EXPECT_TRUE(text2->text().isEmpty());
}

TEST_F(计算器夹具, PanelInsertsAtTheCaret) {
    struct Case { const char* 文本; int 光标; int 选择; int 按钮; const char* 期望; int 新光标; };
    const Case cases[] = {
        {"", 0, 0, 31, "Sin()", 5}, {"1+2", 1, 0, 16, "1*+2", 2}, {"1+2", 1, 1, 15, "1-2", 2},   // selection replaced
        {"Sin()", 4, 0, 39, "Sin(π)", 5},
    };
    for (const auto& c : cases) {
        text1->setPlainText(QString::fromUtf8(c.文本));
        QTextCursor k = text1->textCursor();
        k.setPosition(c.光标);
        k.setPosition(c.光标 + c.选择, QTextCursor::KeepAnchor);
        text1->setTextCursor(k);
        text2->setText(QStringLiteral("旧结果"));
        点击(*屏, QStringLiteral("HmBut%1").arg(c.按钮));
        EXPECT_EQ(text1->toPlainText(), QString::fromUtf8(c.期望)) << c.文本 << " + " << c.按钮;
        EXPECT_EQ(text1->textCursor().position(), c.新光标) << c.文本 << " + " << c.按钮;
        EXPECT_TRUE(text2->text().isEmpty());
    }
    点击(*屏, QStringLiteral("HmBut11"));
    EXPECT_EQ(text3->toPlainText(), 面板按钮帮助(11));

    // Button 60 inserts a fraction between 0 and 1; button 50 leaves Text1.
    text1->setPlainText(QString());
    点击(*屏, QStringLiteral("HmBut60"));
    bool ok = false;
    const double r = text1->toPlainText().toDouble(&ok);
    EXPECT_TRUE(ok && r >= 0 && r < 1) << text1->toPlainText().toStdString();
    text1->setPlainText(QStringLiteral("612345000"));
    点击(*屏, QStringLiteral("dcButton10"));
    const QString 前 = text1->toPlainText();
    点击(*屏, QStringLiteral("HmBut50"));
    EXPECT_EQ(text1->toPlainText(), 前);
    EXPECT_TRUE(text2->text().contains(u'E')) << text2->text().toStdString();
}

TEST_F(计算器夹具, FailureShowsTheFirstErrorNeverAValue) {
    输入并计算(QStringLiteral("1/0"));
    EXPECT_FALSE(text2->text().isEmpty());
    EXPECT_FALSE(text2->text().at(0).isDigit()) << text2->text().toStdString();
    EXPECT_FALSE(text3->toPlainText().isEmpty());
}

// ===========================================================================
// No input in any box and no button press crashes a screen or lets an
// exception out; every dialog is answered by the recording callback.

namespace {

const QStringList 恶意输入 = {
    QString(),
    QStringLiteral("' or '1'='1"),
    QStringLiteral("(((((((((((("),
    QStringLiteral("1/0"),
    QStringLiteral("9^9^9^9"),
    QStringLiteral("99999999999999999999999999999999999*99999999999999999999999999999"),
    QStringLiteral("1e99999"),
    QStringLiteral("Ln(-1)+Lg(0)+Asin(2)"),
    QStringLiteral("170!+171!+1000!"),
    QStringLiteral("Sin(Cos(Tan(Cot(Sinh(Cosh(Tanh(Coth(1))))))))"),
    QStringLiteral("1;2\n3\r\n4\t5"),
    QStringLiteral("😀𝔸\u200b\u202e"),
    QString(QChar(0)) + QStringLiteral("1+1"),
    QStringLiteral("１２３４５６７８９０＋－×÷（）"),
    QStringLiteral("(1+").repeated(400),
    QStringLiteral("-").repeated(2000) + u'1',
};

// Presses every enabled button of `w` once.
void 按遍(QWidget& w) {
    for (auto* b : w.findChildren<QAbstractButton*>())
        if (b->isEnabled()) { EXPECT_NO_THROW(b->click()) << b->objectName().toStdString(); }
}

}  // namespace

TEST_F(程序夹具, CalculatorSurvivesHostileInputAndEveryButton) {
    带库启动();
    Form1 屏;
    auto* text1 = 控件<QPlainTextEdit>(屏, QStringLiteral("Text1"));
    auto* combo = 控件<QComboBox>(屏, QStringLiteral("Combo1"));
    ASSERT_TRUE(text1 && combo);
    int k = 0;
    for (const QString& s : 恶意输入) {
        combo->setCurrentIndex(k++ % combo->count());
        text1->setPlainText(s);
        EXPECT_NO_THROW(屏.计算()) << s.left(40).toStdString();
        text1->setPlainText(s);
        QTextCursor c = text1->textCursor();
        c.setPosition(static_cast<int>(s.size() / 2));
        text1->setTextCursor(c);
        按遍(屏);
    }
    // The memory screen opened by one of those presses: every box, every button.
    Form3* 内存 = 屏.内存变量屏();
    ASSERT_NE(内存, nullptr);
    for (const QString& s : 恶意输入) {
        for (int i = 1; i <= 9; ++i) 控件<QLineEdit>(*内存, QStringLiteral("Text%1").arg(i))->setText(s);
        按遍(*内存);
        内存->show();
    }
    // The calculator still computes after all that.
    内存->一至九();
    text1->setPlainText(QStringLiteral("r*s*t*u*v*w*x*y*z"));
    屏.计算();
    EXPECT_TRUE(控件<QLineEdit>(屏, QStringLiteral("Text2"))->text().simplified().startsWith(QStringLiteral("362880")));
}

TEST_F(程序夹具, MenuSurvivesEveryButton) {
    带库启动();
    Form2 菜单;
    菜单.show();
    按遍(菜单);
    EXPECT_NE(菜单.计算器(), nullptr);
}
