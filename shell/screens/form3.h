// Form3, the memory variables R..Z: nine boxes, "all to 1", "1 to 9",
// apply, close. Opened modally from the calculator.
#pragma once

#include <QDialog>
#include <array>

class QLineEdit;

class Form3 : public QDialog {
public:
    explicit Form3(QWidget* parent = nullptr);

    void 全为一();   // Command1
    void 一至九();   // Command2
    void 应用();     // Command3
    void 刷新();     // the boxes show the variables

protected:
    void showEvent(QShowEvent* e) override;

private:
    void 显示(const QStringList& 文本);
    std::array<QLineEdit*, 9> 框_{};
};
