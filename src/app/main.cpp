#include "shell/qtdialogs.h"

#include <QApplication>
#include <QLabel>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(ExecutableBaseName());
    QLabel window(QStringLiteral("Tresvane Dispatcher"));
    window.setWindowTitle(ApplicationTitle());
    window.resize(480, 200);
    window.show();
    return app.exec();
}
