// Moves the outlines of a symbol onto whole pixels, so that it is sharp at every size.
#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QStringView>

namespace tamberline {

/// Converts points of the drawing's grid to pixels. The edges of vertical and horizontal strokes
/// fall between pixels; everything moves by at most half a pixel.
class GridFitting {
public:
  /// `strokePoints` is the width of the line along the outline, 0 for a shape that is only filled.
  GridFitting(double pixelsPerPoint, double strokePoints);

  /// In whole pixels, at least 1; 0 without a line.
  double strokePixels() const { return strokePixels_; }

  double fitted(double points) const;
  QPointF fitted(const QPointF& points) const;
  QRectF fitted(const QRectF& points) const;
  double scaled(double points) const { return points * pixelsPerPoint_; }

  /// The path of an SVG path's data with the commands M, L, H, V, C and Z. Ends before anything
  /// else. The handles of a curve move with the ends that they belong to.
  QPainterPath path(QStringView data) const;

private:
  double pixelsPerPoint_;
  double strokePixels_;
};

} // namespace tamberline
