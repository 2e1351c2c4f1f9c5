// The program: installs the message boxes and the desktop opener, runs the
// entry procedure and shows the main menu. The process lives while the
// menu is open.
//
// ORVANE_QUIT_AFTER_SHOW=1 ends the process as soon as the menu has been
// shown (start-up measurements, bench/startup.sh).
#include "shell/screens/common.h"
#include "shell/screens/form2.h"
#include "shell/startup.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <cstdio>

#ifndef ORVANE_VERSION
#define ORVANE_VERSION "0.1"
#endif

int main(int argc, char** argv) {
    QElapsedTimer 计时;
    计时.start();
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("orvane"));
    QApplication::setApplicationVersion(QStringLiteral(ORVANE_VERSION));
    {
        QFont f = QApplication::font();
        f.setFamilies({QStringLiteral("Noto Sans CJK SC"), f.family()});
        QApplication::setFont(f);
    }

    消息框交互 消息框;
    安装交互(&消息框);
    安装打开器(&桌面打开);

    if (启动程序(默认启动环境()) == 启动结果::已有实例) return 1;

    Form2 菜单;
    菜单.show();
    if (qEnvironmentVariableIntValue("ORVANE_QUIT_AFTER_SHOW") == 1) {
        QTimer::singleShot(0, &app, [&] {
            std::fprintf(stderr, "orvane: menu shown after %lld ms\n", static_cast<long long>(计时.elapsed()));
            app.quit();
        });
    }
    const int rc = app.exec();
    释放单实例锁();
    return rc;
}
