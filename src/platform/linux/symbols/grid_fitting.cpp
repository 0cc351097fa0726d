#include "platform/linux/symbols/grid_fitting.h"

#include <QStringView>

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace tamberline {
namespace {

/// Rounds up in the middle, so that neighbouring lines stay equally far apart.
double rounded(double value) {
  return std::floor(value + 0.5);
}

/// Reads the commands and numbers of a path one after another.
class PathData {
public:
  explicit PathData(QStringView data) : rest_(data) {}

  /// 0 at the end, and if a number follows.
  char command() {
    skipSpace();
    if (rest_.isEmpty() || !rest_.front().isLetter()) {
      return 0;
    }
    const char command = rest_.front().toLatin1();
    rest_ = rest_.sliced(1);
    return command;
  }

  /// Absent if fewer numbers follow.
  std::optional<std::vector<double>> numbers(std::size_t count) {
    std::vector<double> numbers;
    while (numbers.size() < count) {
      const QStringView text = numberText();
      if (text.isEmpty()) {
        return std::nullopt;
      }
      numbers.push_back(text.toDouble());
    }
    return numbers;
  }

private:
  void skipSpace() {
    while (!rest_.isEmpty() && (rest_.front().isSpace() || rest_.front() == u',')) {
      rest_ = rest_.sliced(1);
    }
  }

  QStringView numberText() {
    skipSpace();
    qsizetype length = 0;
    while (length < rest_.size() &&
           (rest_[length].isDigit() || rest_[length] == u'.' || rest_[length] == u'-')) {
      ++length;
    }
    const QStringView text = rest_.first(length);
    rest_ = rest_.sliced(length);
    return text;
  }

  QStringView rest_;
};

std::size_t numberCount(char command) {
  switch (command) {
  case 'H':
  case 'V':
    return 1;
  case 'M':
  case 'L':
    return 2;
  case 'C':
    return 6;
  default:
    return 0;
  }
}

} // namespace

GridFitting::GridFitting(double pixelsPerPoint, double strokePoints)
    : pixelsPerPoint_(pixelsPerPoint),
      strokePixels_(strokePoints > 0 ? std::max(1.0, rounded(strokePoints * pixelsPerPoint)) : 0) {}

double GridFitting::fitted(double points) const {
  const double half = strokePixels_ / 2;
  return rounded(scaled(points) - half) + half;
}

QPointF GridFitting::fitted(const QPointF& points) const {
  return {fitted(points.x()), fitted(points.y())};
}

QRectF GridFitting::fitted(const QRectF& points) const {
  return {fitted(points.topLeft()), fitted(points.bottomRight())};
}

QPainterPath GridFitting::path(QStringView data) const {
  QPainterPath path;
  PathData reader(data);
  QPointF end; // of the path so far, in points
  const auto handle = [&](double x, double y, const QPointF& owner) {
    return QPointF(x, y) * pixelsPerPoint_ + fitted(owner) - owner * pixelsPerPoint_;
  };
  while (const char command = reader.command()) {
    const auto numbers = reader.numbers(numberCount(command));
    if (command == 'Z') {
      path.closeSubpath();
    } else if (!numbers || numbers->empty()) {
      return path;
    } else if (command == 'C') {
      const std::vector<double>& n = *numbers;
      const QPointF to(n[4], n[5]);
      path.cubicTo(handle(n[0], n[1], end), handle(n[2], n[3], to), fitted(to));
      end = to;
    } else {
      end = command == 'H'   ? QPointF(numbers->front(), end.y())
            : command == 'V' ? QPointF(end.x(), numbers->front())
                             : QPointF(numbers->front(), numbers->back());
      if (command == 'M') {
        path.moveTo(fitted(end));
      } else {
        path.lineTo(fitted(end));
      }
    }
  }
  return path;
}

} // namespace tamberline
