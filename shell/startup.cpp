#include "shell/startup.h"

#include "library/access.h"
#include "numeric/decimal.h"
#include "numeric/interaction.h"
#include "shell/state.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>
#include <memory>

namespace {

std::unique_ptr<QLockFile> 实例锁;
QString 实例锁路径;
打开器 当前打开器;

// Fixed texts of the connections; passwords are kept for the shape of the
// connection text only (SQLite has none).
const QString 驱动前缀 = QStringLiteral("Driver={SQLite3 ODBC Driver};Dbq=");
const QString 菜单库尾 = QStringLiteral(";Uid=admin;Pwd=QrtPlvKest481926;");
const QString 坐标库尾 = QStringLiteral(";Uid=admin;Pwd=QrtHnoWasp481927;");

// Identity defaults, replaced by the SoftName row when it reads.
const QString 默认说明 = QStringLiteral("Orvane 开发组 —— 问题与建议请发往 orvane@example.org");
const QString 默认主页 = QStringLiteral("https://orvane.example.org/");
const QString 默认升级 = QStringLiteral("https://orvane.example.org/download/");

QString 加斜杠(const QString& d) {
    if (d.isEmpty()) return QStringLiteral("./");
    return d.endsWith(u'/') ? d : d + u'/';
}

bool 目录可写(const QString& d) {
    const QFileInfo fi(d);
    if (!fi.isDir() || !fi.isWritable()) return false;
    // isWritable reads mode bits only; a read-only mount says yes. Try.
    QFile probe(QDir(d).filePath(QStringLiteral(".orvane-write-probe")));
    if (!probe.open(QIODevice::WriteOnly)) return false;
    probe.close();
    probe.remove();
    return true;
}

}  // namespace

启动环境 默认启动环境() {
    启动环境 e;
    e.可执行目录 = QCoreApplication::applicationDirPath();
    e.用户数据目录 = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    e.安装数据目录 = QDir::cleanPath(e.可执行目录 + QStringLiteral("/../share/orvane"));
    QString 锁目录 = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (锁目录.isEmpty()) 锁目录 = QDir::tempPath();
    // The temp folder is shared between users: the user name keeps one
    // user's copy from refusing another's.
    QString 用户 = qEnvironmentVariable("USER");
    if (用户.isEmpty()) 用户 = qEnvironmentVariable("LOGNAME");
    e.锁文件路径 = QDir(锁目录).filePath(QStringLiteral("orvane-%1.lock").arg(用户.isEmpty() ? QStringLiteral("user") : 用户));
    return e;
}

bool 取得单实例锁(const QString& 路径) {
    if (实例锁 && 实例锁路径 == 路径) return true;
    释放单实例锁();
    auto lock = std::make_unique<QLockFile>(路径);
    // Never stale by age: a copy left open for days still holds it. A lock
    // of a dead process is recognised by its PID and taken over.
    lock->setStaleLockTime(0);
    if (!lock->tryLock(0)) return false;
    实例锁 = std::move(lock);
    实例锁路径 = 路径;
    return true;
}

void 释放单实例锁() {
    if (实例锁) 实例锁->unlock();
    实例锁.reset();
    实例锁路径.clear();
}

QString 求程序目录(const 启动环境& 环境) {
    const QString exe = 加斜杠(环境.可执行目录);
    if (QFileInfo(exe + 菜单库文件名).isFile() && 目录可写(环境.可执行目录)) return exe;
    if (环境.用户数据目录.isEmpty() || !QDir().mkpath(环境.用户数据目录)) return exe;
    const QString 用户 = 加斜杠(环境.用户数据目录);
    // First start (or a file deleted since): fill in the installed defaults,
    // and the data files of a read-only program folder (a portable copy on
    // read-only media). Only missing files are copied, so the user's own
    // data is never replaced.
    auto 补齐 = [&](const QString& 源目录, const QStringList& 式样) {
        const QDir 源(源目录);
        if (源目录.isEmpty() || !源.exists()) return;
        for (const QFileInfo& fi : 源.entryInfoList(式样, QDir::Files)) {
            const QString 目标 = 用户 + fi.fileName();
            if (QFileInfo::exists(目标)) continue;
            if (QFile::copy(fi.filePath(), 目标))
                QFile::setPermissions(目标, QFile::permissions(目标) | QFileDevice::WriteOwner);
        }
    };
    补齐(环境.安装数据目录, {});
    补齐(环境.可执行目录, {QStringLiteral("*.db"), QStringLiteral("*.html"), QStringLiteral("*.gif"),
                            QStringLiteral("*.TXT"), QStringLiteral("*.RTF")});
    return 用户;
}

void 设置路径(const QString& 目录) {
    数据状态.程序目录 = 加斜杠(目录);
    数据状态.帮助文件路径 = 数据状态.程序目录 + 帮助文件名;
    数据状态.驱动串 = 驱动前缀 + 数据状态.程序目录;
    数据状态.菜单库连接串 = 数据状态.驱动串 + 菜单库文件名 + 菜单库尾;
    数据状态.坐标库连接串 = 数据状态.驱动串 + 坐标库文件名 + 坐标库尾;
}

void 设置身份默认值() {
    公共.程序.软件标题 = QStringLiteral("Orvane");
    公共.程序.说明文字 = 默认说明;
    公共.程序.主页地址 = 默认主页;
    公共.程序.官网地址 = 默认主页;
    公共.程序.升级地址 = 默认升级;
    公共.程序.启动次数 = 1;
    公共.程序.计算次数 = 0;
    公共.程序.坐标次数 = 0;
}

void 初始化字母变量() {
    for (auto& v : 变量状态.字母变量) v = 数值(Decimal96());
    for (数组变量* a : {&脚本状态.数组U, &脚本状态.数组V, &脚本状态.数组W}) {
        a->列表文本 = QStringLiteral("0,0");
        a->个数 = 2;
        a->元素 = QStringList{QString(), QString(), QString()};
    }
}

void 设置输出格式() {
    计算状态.输出小数位数 = 8;
    计算状态.高精度开关 = true;
    计算状态.可达有效位数 = 29;
    坐标状态.格式7位坐标 = QStringLiteral("0000000.000");
    坐标状态.格式8位坐标 = QStringLiteral("00000000.000");
    坐标状态.格式高程 = QStringLiteral("###0.000");
    坐标状态.格式2位角度 = QStringLiteral("00.00000000");
    坐标状态.格式3位角度 = QStringLiteral("000.00000000");
    坐标状态.格式小数位数 = 3;
}

启动结果 启动程序(const 启动环境& 环境) {
    if (!取得单实例锁(环境.锁文件路径)) {
        交互().告知(QStringLiteral("该软件已经运行：不要同时运行多个副本！"));
        return 启动结果::已有实例;
    }
    初始化字母变量();
    设置路径(求程序目录(环境));
    设置身份默认值();
    if (软件信息 行; 读软件信息(&行) > 0) {
        公共.程序.启动次数 = 行.使用数;
        公共.程序.软件标题 = 行.软件显示;
        公共.程序.说明文字 = 行.备注;
        公共.程序.官网地址 = 行.官网;
        公共.程序.升级地址 = 行.链接;
    }
    const QString 菜单库 = 取库文件名(数据状态.菜单库连接串);
    if (!QFileInfo(菜单库).isFile())
        交互().告知(QStringLiteral("菜单按钮数据文件--") + 菜单库.toLower() +
                    QStringLiteral("--已经丢失？ 建议重装本软件！"));
    设置输出格式();
    坐标状态.列表分隔符 = QStringLiteral(",");
    return 启动结果::已启动;
}

打开器 安装打开器(打开器 新) { return std::exchange(当前打开器, std::move(新)); }

void 打开链接(const QString& 目标) {
    if (!当前打开器 || 目标.trimmed().isEmpty()) return;
    try {
        当前打开器(目标);
    } catch (...) {
        // The desktop's failures are ignored: nothing to undo, nothing to say.
    }
}

void 打开帮助() { 打开链接(数据状态.帮助文件路径); }
