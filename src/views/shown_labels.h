// Texts of the description as QML draws them: cut to a length that can be drawn and without
// characters that would change what stands around them (see shownText), since names come from
// devices.
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

// In characters.
constexpr std::size_t maxLabelLength = 120;
constexpr std::size_t maxTooltipLength = 600;
constexpr std::size_t maxSentenceLength = 2000;

QString shownLabel(std::string_view text, std::size_t maxLength = maxLabelLength);
/// Empty when absent.
QString labelOrEmpty(const std::optional<std::string>& text);
QString shownTooltip(std::string_view text);
/// Symbols' names are ours.
QString shownSymbol(std::string_view symbol);

/// For QML, which takes lists of values of a type of ours as lists of variants only.
template <typename Value>
QVariantList asVariants(const std::vector<Value>& values) {
  QVariantList variants;
  for (const Value& value : values) {
    variants.push_back(QVariant::fromValue(value));
  }
  return variants;
}

/// A name that may be cut where it is drawn, with all of it, and perhaps more, in the tooltip.
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

/// `note` is what the tooltip says beside the name.
NameLabel nameLabel(std::string_view name, const std::optional<std::string>& note = {});

} // namespace tamberline
