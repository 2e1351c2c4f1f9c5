#include "shell/screens/form2.h"

#include "library/access.h"
#include "numeric/text.h"
#include "numeric/interaction.h"
#include "shell/screens/common.h"
#include "shell/screens/form1.h"
#include "shell/startup.h"
#include "shell/state.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace {

// The design-time look of the data-driven controls, kept when the menu
// database is missing (pixels at 96 DPI, as the data).
struct 设计位置 { const char* 名; const char* 标题; int 左, 顶, 长, 高; };
constexpr 设计位置 设计LabelTop{"LabelTop", "Orvane", 16, 10, 688, 44};
constexpr 设计位置 设计计算{"dcButJiSuan", "科学计算器", 16, 64, 336, 72};
constexpr 设计位置 设计坐标{"dcButZuoBiao", "坐标批量转换", 368, 64, 336, 72};
constexpr int 最多图册按钮 = 12;

// The fixed tool buttons: name, caption, and whether the screen behind it
// is there yet (a button without its screen is shown disabled).
struct 固定按钮 { const char* 名; const char* 标题; };
constexpr 固定按钮 工具按钮[] = {
    {"dcButton001", "排列组合"},     {"dcButton002", "积分计算"}, {"dcButton003", "角度变换"},
    {"dcButton004", "进制换算"},     {"dcButton005", "数理统计"}, {"dcButton006", "手持GPS设置"},
    {"dcButton007", "单点坐标换带"}, {"dcButton008", "距离方位"}, {"dcButton009", "产状计算"},
    {"dcButton010", "累计求和"},     {"dcButton014", "坐标自由分带"},
};
static_assert(std::size(工具按钮) == 11);

const QString 未提供 = QStringLiteral("此功能模块尚未提供。");

QString 版本后缀() {
    // A blank, major ".", minor, then the revision with no separator.
    const QStringList p = QCoreApplication::applicationVersion().split(u'.');
    return QStringLiteral(" %1.%2%3")
        .arg(p.value(0).isEmpty() ? QStringLiteral("0") : p.value(0), p.value(1, QStringLiteral("0")), p.value(2));
}

void 放置(QWidget* w, const 菜单行& r) {
    w->setGeometry(r.按钮左, r.按钮顶, std::max(r.按钮长, 8), std::max(r.按钮高, 8));
    w->setToolTip(菜单提示(r));
}

}  // namespace

Form2::Form2(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("Form2"));
    setWindowTitle(公共.程序.软件标题);

    auto* 外 = new QVBoxLayout(this);
    外->setContentsMargins(0, 4, 0, 16);
    外->setSpacing(10);

    // The data area: children placed by the rectangles of the rows.
    数据区_ = new QWidget(this);
    数据区_->setObjectName(QStringLiteral("数据区"));
    labelTop_ = new 可点标签(数据区_);
    labelTop_->setObjectName(QString::fromUtf8(设计LabelTop.名));
    labelTop_->setAlignment(Qt::AlignCenter);
    labelTop_->setCursor(Qt::PointingHandCursor);
    {
        QFont f = labelTop_->font();
        f.setPointSize(18);
        f.setBold(true);
        labelTop_->setFont(f);
    }
    labelTop_->点击 = [] { 打开链接(公共.程序.主页地址); };

    auto 大按钮 = [this](const 设计位置& d) {
        auto* b = new QPushButton(QString::fromUtf8(d.标题), 数据区_);
        b->setObjectName(QString::fromUtf8(d.名));
        QFont f = b->font();
        f.setPointSize(15);
        f.setBold(true);
        b->setFont(f);
        return b;
    };
    dcButJiSuan_ = 大按钮(设计计算);
    connect(dcButJiSuan_, &QPushButton::clicked, this, [this] { 打开计算器(); });
    dcButZuoBiao_ = 大按钮(设计坐标);
    dcButZuoBiao_->setEnabled(false);  // the conversion workbench is not in this build
    for (int i = 1; i <= 最多图册按钮; ++i) {
        auto* b = new QPushButton(数据区_);
        b->setObjectName(QStringLiteral("dcButMod%1").arg(i));
        b->hide();
        connect(b, &QPushButton::clicked, this, [this, i] { 打开图册(i); });
        dcButMod_[i] = b;
    }
    外->addWidget(数据区_);

    // The fixed tools.
    auto* 工具组 = new QGroupBox(QStringLiteral("常用工具"), this);
    auto* 网格 = new QGridLayout(工具组);
    网格->setHorizontalSpacing(10);
    网格->setVerticalSpacing(8);
    int k = 0;
    for (const auto& fb : 工具按钮) {
        auto* b = new QPushButton(QString::fromUtf8(fb.标题), 工具组);
        b->setObjectName(QString::fromUtf8(fb.名));
        b->setMinimumHeight(34);
        b->setEnabled(false);
        b->setToolTip(未提供);
        网格->addWidget(b, k / 4, k % 4);
        ++k;
    }
    // Tools and foot line up with the data area's buttons (16 pixels in).
    auto* 下部 = new QVBoxLayout();
    下部->setContentsMargins(16, 0, 16, 0);
    下部->setSpacing(10);
    下部->addWidget(工具组);

    // The foot: logo, note, upgrade, help, exit.
    auto* 脚 = new QHBoxLayout();
    脚->setSpacing(10);
    imageLogo_ = new 可点标签(this);
    imageLogo_->setObjectName(QStringLiteral("ImageLogo"));
    imageLogo_->setCursor(Qt::PointingHandCursor);
    imageLogo_->点击 = [] { 打开链接(公共.程序.升级地址); };
    imageLogo_->hide();
    脚->addWidget(imageLogo_);
    labelShuoMing_ = new 可点标签(this);
    labelShuoMing_->setObjectName(QStringLiteral("LabelShuoMing"));
    labelShuoMing_->setWordWrap(true);
    labelShuoMing_->setCursor(Qt::PointingHandCursor);
    labelShuoMing_->setStyleSheet(QStringLiteral("color: #35506b;"));
    labelShuoMing_->点击 = [] { 打开链接(公共.程序.升级地址); };
    脚->addWidget(labelShuoMing_, 1);
    auto 脚按钮 = [&](const char* 名, const char* 标题) {
        auto* b = new QPushButton(QString::fromUtf8(标题), this);
        b->setObjectName(QString::fromUtf8(名));
        b->setMinimumHeight(34);
        b->setMinimumWidth(96);
        脚->addWidget(b);
        return b;
    };
    connect(脚按钮("dcButton012", "软件升级"), &QPushButton::clicked, this, [] { 打开链接(公共.程序.主页地址); });
    connect(脚按钮("dcButton013", "帮助 ( F1 )"), &QPushButton::clicked, this, [] { 打开帮助(); });
    connect(脚按钮("dcButton015", "退 出  "), &QPushButton::clicked, this, [this] { close(); });
    下部->addLayout(脚);
    外->addLayout(下部);

    auto* f1 = new QShortcut(QKeySequence::HelpContents, this);
    connect(f1, &QShortcut::activated, this, [] { 打开帮助(); });

    载入();
}

Form2::~Form2() = default;

void Form2::载入() {
    设置输出格式();
    // Back to the design-time look, then the data over it.
    auto 设计 = [](QWidget* w, const 设计位置& d) {
        w->setGeometry(d.左, d.顶, d.长, d.高);
        w->setToolTip(QString());
    };
    labelTop_->setText(QString::fromUtf8(设计LabelTop.标题));
    设计(labelTop_, 设计LabelTop);
    dcButJiSuan_->setText(QString::fromUtf8(设计计算.标题));
    设计(dcButJiSuan_, 设计计算);
    dcButZuoBiao_->setText(QString::fromUtf8(设计坐标.标题));
    设计(dcButZuoBiao_, 设计坐标);
    dcButZuoBiao_->setToolTip(未提供);

    读菜单常规表();
    读图册按钮();

    const QString 标志 = 数据状态.程序目录 + QStringLiteral("ReadLogo.gif");
    QPixmap pm;
    if (QFileInfo(标志).isFile() && pm.load(标志)) {
        imageLogo_->setPixmap(pm.height() > 64 ? pm.scaledToHeight(64, Qt::SmoothTransformation) : pm);
        imageLogo_->show();
    } else {
        imageLogo_->clear();
        imageLogo_->hide();
    }
    labelShuoMing_->setText(公共.程序.说明文字);
    setWindowTitle(公共.程序.软件标题);

    // The data area is as large as what it holds.
    QRect 界;
    for (QWidget* w : 数据区_->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        if (!w->isHidden()) 界 = 界.united(w->geometry());
    数据区_->setFixedSize(std::max(界.right() + 17, 720), 界.bottom() + 9);
}

int Form2::读菜单常规表() {
    const QList<菜单行> 行 = 读常规表();
    if (行.isEmpty()) return 0;
    放置(labelTop_, 行[0]);
    labelTop_->setText(行[0].按钮名 + 版本后缀());
    if (行.size() >= 2) {
        放置(dcButJiSuan_, 行[1]);
        dcButJiSuan_->setText(行[1].按钮名);
        公共.程序.计算次数 = 行[1].使用数;
    }
    if (行.size() >= 3) {
        放置(dcButZuoBiao_, 行[2]);
        dcButZuoBiao_->setText(行[2].按钮名);
        dcButZuoBiao_->setToolTip(菜单提示(行[2]) + QStringLiteral("（") + 未提供 + QStringLiteral("）"));
        公共.程序.坐标次数 = 行[2].使用数;
    }
    return 行[0].使用数;
}

int Form2::读图册按钮() {
    QList<菜单行> 行 = 读表总表();
    const int n = std::min<int>(行.size(), 最多图册按钮);
    数据状态.图册按钮表 = QStringList{QString()};  // entries 1..n
    for (int i = 1; i <= 最多图册按钮; ++i) dcButMod_[i]->hide();
    for (int i = 1; i <= n; ++i) {
        const 菜单行& r = 行[i - 1];
        数据状态.图册按钮表 << r.类别ID;
        dcButMod_[i]->setText(r.按钮名);
        放置(dcButMod_[i], r);
        dcButMod_[i]->show();
    }
    return n;
}

void Form2::打开计算器() {
    if (!form1_) form1_ = std::make_unique<Form1>(this);
    模态打开(*form1_);
}

void Form2::打开图册(int i) {
    if (i < 1 || i >= 数据状态.图册按钮表.size()) return;
    读当前图册(数据状态.图册按钮表[i]);
    const QString 文件 = 数据状态.程序目录 + 数据状态.图册库文件;
    if (txt::trim(数据状态.图册库文件).isEmpty() || !QFileInfo(文件).isFile()) {
        交互().告知(QStringLiteral("该模块对应的数据文件 [ ") + 文件 + QStringLiteral(" ] 异常。"));
        return;
    }
    数据状态.类别数 = 读代码表(QStringLiteral("列类别"), QStringLiteral("编号"), QStringLiteral("名称"), 数据状态.类别ID表,
                          数据状态.类别名称表, QStringLiteral(" Where (父关联=? and 用否=-1 ) Order By 编号 Asc"),
                          {数据状态.图册类别ID});
    设置输出格式();
    // The atlas screen is not in this build.
    交互().告知(QStringLiteral("计算图册模块尚未提供。"), 数据状态.图册标题);
}
