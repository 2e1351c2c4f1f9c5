// Form1, the scientific calculator: the expression box, the result line,
// the status box, the store of expressions and the 60-button panel. A thin
// set of handlers over shell/calculator.h; opened modally from the menu.
#pragma once

#include "shell/calculator.h"

#include <QDialog>
#include <array>
#include <memory>

class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class Form3;

class Form1 : public QDialog {
public:
    explicit Form1(QWidget* parent = nullptr);
    ~Form1() override;

    // The handlers, callable as the buttons call them.
    void 计算();                 // dcButton10, Enter in Text1
    void 面板按下(int n);        // HmBut n, 1..60
    void 切换角度单位();         // Command5
    void 存储();                 // dcButton9
    void 前一个();               // dcButton11
    void 后一个();               // dcButton12

    Form3* 内存变量屏() const { return form3_.get(); }
    const 算式存储& 存储区() const { return *存储_; }

protected:
    bool eventFilter(QObject* o, QEvent* e) override;

private:
    void 显示存储(const 存储显示& d);
    void 打开内存变量();

    QPlainTextEdit* text1_ = nullptr;
    QLineEdit* text2_ = nullptr;
    QPlainTextEdit* text3_ = nullptr;
    QLineEdit* text4_ = nullptr;
    QComboBox* combo1_ = nullptr;
    QPushButton* command5_ = nullptr;
    std::unique_ptr<算式存储> 存储_;
    std::unique_ptr<Form3> form3_;
};
