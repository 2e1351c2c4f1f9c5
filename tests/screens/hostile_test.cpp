// No input in any box and no button press crashes a screen or lets an
// exception out; every dialog is answered by the recording callback.
#include "fixture.h"

#include "shell/screens/form1.h"
#include "shell/screens/form2.h"
#include "shell/screens/form3.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

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
