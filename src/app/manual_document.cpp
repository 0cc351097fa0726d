#include "app/manual_document.h"

#include "i18n/app_language.h"

#include <QDir>
#include <QLatin1String>

#include <array>

namespace tamberline {
namespace {

/// The languages in which the manual is looked for, in order of preference.
std::array<AppLanguage, 2> languagesInOrder() {
  return {AppLanguage::current(), AppLanguage(AppLanguage::en)};
}

QString fileNameFor(AppLanguage language) {
  const std::string_view code = language.code();
  return QStringLiteral("Manual-%1.pdf")
      .arg(QLatin1String(code.data(), static_cast<qsizetype>(code.size())));
}

std::unique_ptr<QPdfDocument> open(const QString& path) {
  auto document = std::make_unique<QPdfDocument>();
  const bool isReadable = document->load(path) == QPdfDocument::Error::None;
  return isReadable && document->pageCount() > 0 ? std::move(document) : nullptr;
}

} // namespace

QString manualFolder(const QString& programFolder) {
  for (const char* place : {"../share/tamberline/manual", "../Resources"}) {
    QString folder = QDir::cleanPath(QDir(programFolder).filePath(QLatin1String(place)));
    for (const AppLanguage language : languagesInOrder()) {
      if (QDir(folder).exists(fileNameFor(language))) {
        return folder;
      }
    }
  }
  return {};
}

std::unique_ptr<QPdfDocument> loadDocument(const QString& folder) {
  if (folder.isEmpty()) {
    return nullptr; // never read from the current folder
  }
  for (const AppLanguage language : languagesInOrder()) {
    if (auto document = open(QDir(folder).filePath(fileNameFor(language)))) {
      return document;
    }
  }
  return nullptr;
}

} // namespace tamberline
