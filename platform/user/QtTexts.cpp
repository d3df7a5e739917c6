#include "QtTexts.h"

#include <UserLanguages.h>

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <memory>

void LoadQtTexts(QCoreApplication& application)
{
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    for (const std::string& language : UserLanguages()) {
        auto translator = std::make_unique<QTranslator>(&application);
        if (!translator->load("qtbase_" + QString::fromStdString(language), folder))
            continue;
        QCoreApplication::installTranslator(translator.release());
        return;
    }
}
