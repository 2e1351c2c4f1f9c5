// The entry procedure and the small process-wide services around it: the
// single-instance lock, the data folder, the identity defaults, the output
// defaults, and the desktop's "open" verb. No widgets here: messages go
// through 交互(), and the actual opening of a document or address through a
// callback that the program installs (QDesktopServices lives in QtGui).
#pragma once

#include <QString>
#include <functional>

// Where the program looks for its files and its lock. 默认启动环境() fills
// it for the running program; tests fill it with temporary folders.
struct 启动环境 {
    QString 可执行目录;    // folder of the executable
    QString 用户数据目录;  // per-user data folder, used when 可执行目录 won't do
    QString 安装数据目录;  // installed defaults, copied into 用户数据目录 on first start
    QString 锁文件路径;    // the per-user single-instance lock file
};

// The running program's environment: the application folder, the
// AppDataLocation, <prefix>/share/orvane beside <prefix>/bin, and a lock in
// the per-user runtime folder (or temp folder). Needs a QCoreApplication.
启动环境 默认启动环境();

enum class 启动结果 {
    已启动,    // the main menu may be shown
    已有实例,  // another copy runs: the message was shown, end the process
};

// The entry procedure, up to (not including) showing the main menu:
//  1. the single-instance lock; if another copy holds it, 交互().告知(
//     "该软件已经运行：不要同时运行多个副本！") and 已有实例, nothing else done;
//  2. 初始化字母变量;
//  3. 程序目录 (求程序目录), 帮助文件路径, 驱动串, 菜单库连接串, 坐标库连接串;
//  4. the identity defaults;
//  5. 读软件信息 (silent on failure);
//  6. if the menu file is missing, 交互().告知("菜单按钮数据文件--" + lower-cased
//     path + "--已经丢失？ 建议重装本软件！") and go on;
//  7. 设置输出格式; 8. 列表分隔符 = ",".
// The lock is held until 释放单实例锁() or the process ends.
启动结果 启动程序(const 启动环境& 环境);

// The single-instance lock: true if this process now holds the lock at
// `路径` (a stale lock of a dead process is taken over). Taking it again in
// the same process while held returns true.
bool 取得单实例锁(const QString& 路径);
void 释放单实例锁();

// The data folder, with one closing "/": 可执行目录 when it holds
// QdpxMenu.db and is writable; otherwise 用户数据目录, created if need be,
// into which every file of 安装数据目录 that it lacks is copied, and the
// data files (*.db, *.html, *.gif, *.TXT, *.RTF) of 可执行目录 when that
// one is read-only (never overwriting). If the user folder can't be made, 可执行目录 all the same.
QString 求程序目录(const 启动环境& 环境);

// Step 3: the paths and connection texts from `目录` (a closing "/" is
// added if missing, never a second one).
void 设置路径(const QString& 目录);

// Step 4: 软件标题, 说明文字, 主页地址, 官网地址, 升级地址, 启动次数,
// 计算次数, 坐标次数 to their defaults.
void 设置身份默认值();

// The 25 letter variables become decimal 0; the arrays U, V, W get list
// text "0,0", count 2 and elements 0..2 empty.
void 初始化字母变量();

// 输出小数位数 8, 高精度开关 on, 可达有效位数 29, the five number formats
// and their count of 3 decimals.
void 设置输出格式();

// The desktop's open verb. The program installs an opener (QDesktopServices);
// without one, nothing is opened. Returns the previous opener.
using 打开器 = std::function<bool(const QString& 目标)>;
打开器 安装打开器(打开器 新);

// Hands `目标` (a file path or an address) to the opener; errors are
// ignored. A bare path is handed over as it is; the opener decides.
void 打开链接(const QString& 目标);

// Opens 帮助文件路径 the same way; errors are ignored.
void 打开帮助();

// Help document name (beside the program).
inline const QString 帮助文件名 = QStringLiteral("帮助文档HvtLk.html");
