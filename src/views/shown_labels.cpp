#include "views/shown_labels.h"

#include "base/shown_text.h"
#include "base/text.h"

namespace tamberline {

QString shownLabel(std::string_view text, std::size_t maxLength) {
  return QString::fromStdString(shownText(text, maxLength));
}

QString labelOrEmpty(const std::optional<std::string>& text) {
  return text ? shownLabel(std::string_view(*text)) : QString();
}

QString shownTooltip(std::string_view text) {
  return shownLabel(text, maxTooltipLength);
}

QString shownParagraphs(std::string_view text, std::size_t maxLength) {
  QStringList paragraphs;
  for (const std::string_view paragraph : splitNonEmpty(text, '\n')) {
    paragraphs.push_back(shownLabel(paragraph, maxLength));
  }
  return paragraphs.join(QLatin1Char('\n'));
}

QString shownSymbol(std::string_view symbol) {
  return QString::fromUtf8(symbol.data(), static_cast<qsizetype>(symbol.size()));
}

NameLabel nameLabel(std::string_view name, const std::optional<std::string>& note) {
  return {.text = shownLabel(name),
          .tooltip =
              shownTooltip(note ? std::string(trimmed(name)) + " · " + *note : std::string(name))};
}

} // namespace tamberline
