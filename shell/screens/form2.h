// Form2, the main menu: the program's first and central screen. Its title
// and its large buttons come from the menu database (常规表, 表总表); the
// small tool buttons are fixed. Closing it ends the program.
#pragma once

#include <QWidget>
#include <array>
#include <memory>

class QPushButton;
class QLabel;
class 可点标签;
class Form1;

class Form2 : public QWidget {
public:
    explicit Form2(QWidget* parent = nullptr);
    ~Form2() override;

    // The load: 设置输出格式, 读菜单常规表, 读图册按钮, the logo, the note.
    // Run by the constructor; again to show counts written since.
    void 载入();

    // Reads 常规表 onto LabelTop, dcButJiSuan, dcButZuoBiao; returns the
    // use count of row 1 (0 without rows).
    int 读菜单常规表();
    // Reads 表总表 onto dcButMod1..12; returns the number of atlas buttons.
    int 读图册按钮();

    // The calculator, created on first use (nullptr before).
    Form1* 计算器() const { return form1_.get(); }

private:
    void 打开计算器();
    void 打开图册(int i);

    QWidget* 数据区_ = nullptr;
    可点标签* labelTop_ = nullptr;
    QPushButton* dcButJiSuan_ = nullptr;
    QPushButton* dcButZuoBiao_ = nullptr;
    std::array<QPushButton*, 13> dcButMod_{};  // [1..12]
    可点标签* labelShuoMing_ = nullptr;
    可点标签* imageLogo_ = nullptr;
    std::unique_ptr<Form1> form1_;
};
