#include "book/program_folder.h"
#include "support/terminal.h"
#include "support/tool.h"

#include <QCoreApplication>

#include <iostream>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const lorvan::ToolContext context{std::cout, std::cerr, lorvan::askNewPassword, lorvan::Clock(),
        lorvan::programFolder(QCoreApplication::applicationDirPath()), lorvan::errorTerminalColumns()};
    return static_cast<int>(lorvan::runTool(QCoreApplication::arguments().mid(1), context));
}
