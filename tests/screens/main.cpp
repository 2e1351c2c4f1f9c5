// The screens' tests need one QApplication for the whole run; screens that
// would be opened modally are shown instead, so that no handler blocks.
#include "shell/screens/common.h"

#include <QApplication>
#include <QDialog>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? QByteArray("offscreen")
                                                                       : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("orvane-test"));
    模态打开器() = [](QDialog& d) { d.show(); };
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
