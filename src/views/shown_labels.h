// Texts of the panel's description as QML draws them. Names come from devices, so texts are
// shortened to a length that can be drawn, and characters that affect the surrounding text are
// removed (see shownText).
#pragma once

#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamberline {

// Lengths in characters.
constexpr std::size_t maxLabelLength = 120;
constexpr std::size_t maxTooltipLength = 600;
constexpr std::size_t maxSentenceLength = 2000;

QString shownLabel(std::string_view text, std::size_t maxLength = maxLabelLength);
/// Empty if absent.
QString labelOrEmpty(const std::optional<std::string>& text);
QString shownTooltip(std::string_view text);
/// Keeps line breaks.
QString shownParagraphs(std::string_view text, std::size_t maxLength);
/// Unchanged, because the names of symbols never come from devices.
QString shownSymbol(std::string_view symbol);

/// For QML, which accepts a list of our value types only as a list of variants.
template <typename Value>
QVariantList asVariants(const std::vector<Value>& values) {
  QVariantList variants;
  for (const Value& value : values) {
    variants.push_back(QVariant::fromValue(value));
  }
  return variants;
}

/// A name that may be shortened when drawn. The tooltip contains the whole name and possibly a
/// note.
struct NameLabel {
  Q_GADGET
  QML_VALUE_TYPE(nameLabel)
  Q_PROPERTY(QString text MEMBER text CONSTANT)
  Q_PROPERTY(QString tooltip MEMBER tooltip CONSTANT)

public:
  QString text = {};
  QString tooltip = {};

  friend bool operator==(const NameLabel&, const NameLabel&) = default;
};

/// `note` is added to the name in the tooltip.
NameLabel nameLabel(std::string_view name, const std::optional<std::string>& note = {});

} // namespace tamberline
