// orvane-mkdb SEED.sql OUT.db: builds a database file from its seed SQL
// (a build step; not installed). Fails if OUT.db exists.
#include "library/access.h"

#include <QCoreApplication>
#include <cstdio>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList a = app.arguments();
    if (a.size() != 3) {
        std::fprintf(stderr, "usage: orvane-mkdb SEED.sql OUT.db\n");
        return 2;
    }
    QString why;
    if (!由脚本建库(a[1], a[2], &why)) {
        std::fprintf(stderr, "orvane-mkdb: %s\n", qPrintable(why));
        return 1;
    }
    return 0;
}
