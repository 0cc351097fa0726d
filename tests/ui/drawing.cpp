#include "ui/drawing.h"

#include "base/text.h"
#include "controls/arc.h"
#include "controls/dot.h"
#include "controls/symbol.h"
#include "ui/drawn_items.h"
#include "ui/visible_items.h"
#include "views/view_enums.h"

#include <QQuickWindow>

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tamberline {
namespace {

bool isOfQmlType(const QQuickItem& item, const char* type) {
  return QString::fromLatin1(item.metaObject()->className()).startsWith(QString(type) + "_QML");
}

QColor colorOf(const QQuickItem& item) {
  return item.property("color").value<QColor>();
}

bool isRectangle(const QQuickItem& item) {
  return item.inherits("QQuickRectangle");
}

/// Cards, rings and bubbles have a border; they are not backgrounds of a row. Reading `border` of
/// an item without one creates a black one, which is not drawn.
bool hasBorder(const QQuickItem& item) {
  const auto* border = item.property("border").value<QObject*>();
  return border != nullptr && border->property("width").toDouble() > 0 &&
         border->property("color").value<QColor>() != QColor(Qt::black);
}

bool isTinted(const QQuickItem& item) {
  return colorOf(item).alpha() > 0 && drawnOpacity(item) > 0;
}

std::string percent(double share) {
  return std::to_string(std::lround(share * 100)) + "%";
}

/// Items whose centres differ by less are in one line.
constexpr double sameLine = 6;

/// The first in the alphabet, where several look the same.
std::optional<std::string> nameIn(const ColorSet& colors, const QColor& wanted) {
  std::set<std::string> names;
  for (std::size_t index = 0; index < ColorSet::size; ++index) {
    const auto color = static_cast<Color>(index);
    if (colors.of(color).rgba() == wanted.rgba()) {
      names.emplace(nameOf(color));
    }
  }
  return names.empty() ? std::nullopt : std::optional(*names.begin());
}

} // namespace

/// Walks through the items of a part.
class Drawing::Collector {
public:
  Collector(const Drawing& drawing, const QQuickItem& part) : drawing_(drawing) { visit(part); }

  std::string text() {
    std::sort(elements_.begin(), elements_.end(), [](const Element& left, const Element& right) {
      return left.place.center().y() < right.place.center().y();
    });
    std::string text = connectors_ + groundOfAll();
    auto begin = elements_.begin();
    while (begin != elements_.end()) {
      const double centre = begin->place.center().y();
      const auto end = std::find_if(begin, elements_.end(), [&](const Element& element) {
        return element.place.center().y() - centre > sameLine;
      });
      text += line(begin, end);
      begin = end;
    }
    return text;
  }

private:
  /// One drawn element.
  struct Element {
    std::string text = {};
    QRectF place = {};
  };

  /// A background of other elements.
  struct Ground {
    std::string text = {};
    QRectF place = {};
  };

  using Place = std::vector<Element>::iterator;

  std::string line(Place begin, Place end) {
    std::sort(begin, end, [](const Element& left, const Element& right) {
      return left.place.left() < right.place.left();
    });
    std::string text;
    for (Place element = begin; element != end; ++element) {
      text += (text.empty() ? "" : "  ") + element->text + groundOf(*element);
    }
    return text + "\n";
  }

  std::string groundOfAll() const {
    return grounds_.empty() || !isOfAll(grounds_.front()) ? ""
                                                          : "on " + grounds_.front().text + ": ";
  }

  bool isOfAll(const Ground& ground) const {
    return elements_.size() > 1 &&
           std::all_of(elements_.begin(), elements_.end(), [&](const Element& element) {
             return ground.place.contains(element.place);
           });
  }

  /// The last background that was painted below it.
  std::string groundOf(const Element& element) const {
    for (auto ground = grounds_.rbegin(); ground != grounds_.rend(); ++ground) {
      if (ground->place.contains(element.place)) {
        return isOfAll(*ground) ? "" : " on " + ground->text;
      }
    }
    return {};
  }

  void visit(const QQuickItem& item) {
    if (!item.isVisible()) {
      return;
    }
    if (isOfQmlType(item, "TriBar")) {
      addBar(item);
      return;
    }
    if (isOfQmlType(item, "HierarchyRow")) {
      connectors_ = connectorsOf(item);
      visit(*item.childItems().constLast());
      return;
    }
    add(item);
    for (const QQuickItem* child : item.childItems()) {
      visit(*child);
    }
  }

  void add(const QQuickItem& item) {
    const bool isText = item.inherits("QQuickText") || item.inherits("QQuickTextInput");
    if (isText && !item.property("text").toString().isEmpty()) {
      addElement(item, item.property("text").toString().toStdString(),
                 colorOf(item).rgba() == drawing_.color("text").rgba()
                     ? ""
                     : drawing_.colorName(colorOf(item)));
    } else if (qobject_cast<const Symbol*>(&item) != nullptr &&
               !item.property("name").toString().isEmpty()) {
      addElement(item, '<' + item.property("name").toString().toStdString() + '>',
                 drawing_.colorName(colorOf(item)));
    } else if (qobject_cast<const Dot*>(&item) != nullptr) {
      addElement(item, "dot", drawing_.colorName(colorOf(item)));
    } else if (qobject_cast<const Arc*>(&item) != nullptr) {
      addElement(item, "arc", drawing_.colorName(colorOf(item)));
    } else if (isRectangle(item) && isTinted(item) && !hasBorder(item)) {
      addRectangle(item);
    }
  }

  void addElement(const QQuickItem& item, std::string text, const std::string& color) {
    const QRectF place = placeInWindow(item);
    std::string look = color;
    const auto add = [&look](const std::string& more) { look += (look.empty() ? "" : " ") + more; };
    if (const double opacity = drawnOpacity(item); opacity != 1) {
      add(fixedText(opacity, 2));
    }
    if (item.rotation() != 0) {
      add("turned " + generalText(item.rotation()));
    }
    if (!drawing_.leavesTrace(place)) {
      add("unseen");
    }
    elements_.push_back(
        {look.empty() ? std::move(text) : std::move(text) + " (" + look + ")", place});
  }

  void addRectangle(const QQuickItem& item) {
    const QRectF place = placeInWindow(item);
    std::string text = drawing_.colorName(colorOf(item));
    if (const double opacity = drawnOpacity(item); opacity != 1) {
      text += " " + fixedText(opacity, 2);
    }
    if (place.height() <= 1) {
      elements_.push_back({"--- " + text, place});
    } else {
      grounds_.push_back({text + " r" + generalText(item.property("radius").toDouble()), place});
    }
  }

  void addBar(const QQuickItem& bar) {
    std::vector<const QQuickItem*> layers;
    for (const QQuickItem* layer : bar.childItems()) {
      if (layer->isVisible() && isRectangle(*layer)) {
        layers.push_back(layer);
      }
    }
    const bool isRound = std::all_of(layers.begin(), layers.end(), [&](const QQuickItem* layer) {
      return layer->property("radius").toDouble() == bar.height() / 2;
    });
    std::string text = "bar " + drawing_.colorName(colorOf(bar)) + ", " +
                       generalText(bar.height()) + " high" + (isRound ? ", round:" : ":");
    const char* separator = " ";
    for (const QQuickItem* layer : layers) {
      text += separator + layerText(bar, *layer);
      separator = ", ";
    }
    const QRectF place = placeInWindow(bar);
    elements_.push_back({drawing_.leavesTrace(place) ? text : text + " unseen", place});
  }

  std::string layerText(const QQuickItem& bar, const QQuickItem& layer) const {
    const bool fillsHeight = layer.y() == 0 && layer.height() == bar.height();
    const bool isLikeBar = colorOf(layer).rgba() == colorOf(bar).rgba();
    return (isLikeBar ? "" : drawing_.colorName(colorOf(layer)) + " ") +
           fixedText(layer.opacity(), 2) +
           (layer.x() == 0 ? "" : " from " + percent(layer.x() / bar.width())) + " to " +
           percent((layer.x() + layer.width()) / bar.width()) + (fillsHeight ? "" : ", narrow");
  }

  /// For each column from the left: a guide, a connector to the row, or "?" for anything else.
  std::string connectorsOf(const QQuickItem& hierarchy) const {
    const QQuickItem& columns = *hierarchy.childItems().constFirst();
    std::string text;
    for (const QQuickItem* column : columns.childItems()) {
      if (column->width() > 0) {
        text += connectorOf(*column);
      }
    }
    return text.empty() ? text : text + " ";
  }

  std::string connectorOf(const QQuickItem& column) const {
    std::vector<const QQuickItem*> lines;
    for (const QQuickItem* line : column.childItems()) {
      if (line->isVisible() && isRectangle(*line)) {
        lines.push_back(line);
      }
    }
    const auto looks = [&](const QQuickItem& line, const char* color, double opacity) {
      return colorOf(line).rgba() == drawing_.color(color).rgba() && line.opacity() == opacity;
    };
    const bool isWhole = lines.at(0)->width() == 1 && lines[0]->height() == column.height();
    if (lines.size() == 1 && isWhole && looks(*lines[0], "text", 0.2)) {
      return "│";
    }
    if (lines.size() != 2 || !looks(*lines[0], "secondary", 1) ||
        !looks(*lines[1], "secondary", 1)) {
      return "?";
    }
    const bool endsAtBranch = lines[0]->height() == lines[1]->y() + lines[1]->height();
    return endsAtBranch ? "└" : isWhole ? "├" : "?";
  }

  const Drawing& drawing_;
  std::string connectors_;
  std::vector<Element> elements_;
  std::vector<Ground> grounds_;
};

Drawing::Drawing(QQuickWindow& window, PanelContext& context)
    : theme_(*context.theme()), statusColors_(*context.statusColors()),
      picture_(window.grabWindow().convertToFormat(QImage::Format_RGB32)) {}

std::string Drawing::of(const QQuickItem& part) const {
  return Collector(*this, part).text();
}

QColor Drawing::color(const char* name) const {
  return theme_.property(name).value<QColor>();
}

std::string Drawing::colorName(const QColor& wanted) const {
  for (const char* name :
       {"text", "secondary", "tertiary", "accent", "separator", "card", "field", "window"}) {
    if (color(name).rgba() == wanted.rgba()) {
      return name;
    }
  }
  if (const auto ink = nameIn(statusColors_.inks(), wanted)) {
    return *ink;
  }
  if (const auto fill = nameIn(statusColors_.fills(), wanted)) {
    return "fill " + *fill;
  }
  if (const auto mark = nameIn(statusColors_.marks(), wanted)) {
    return "mark " + *mark;
  }
  return wanted.name(QColor::HexArgb).toStdString();
}

/// Whether the area has more than one colour.
bool Drawing::leavesTrace(const QRectF& place) const {
  constexpr int clearlyDifferent = 24;
  const QRect pixels = place.toAlignedRect() & picture_.rect();
  int least = 255 * 3;
  int greatest = 0;
  for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
    for (int x = pixels.left(); x <= pixels.right(); ++x) {
      const QRgb pixel = picture_.pixel(x, y);
      const int sum = qRed(pixel) + qGreen(pixel) + qBlue(pixel);
      least = std::min(least, sum);
      greatest = std::max(greatest, sum);
    }
  }
  return greatest - least > clearlyDifferent;
}

} // namespace tamberline
