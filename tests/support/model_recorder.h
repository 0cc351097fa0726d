#pragma once

#include <QAbstractItemModel>
#include <QObject>

#include <string>

namespace tamberline {

/// Records the signals of a list model, one per line: "+2..4" rows were inserted, "-2" a row was
/// removed, ">5 before 1" a row moved, "~3" a row changed.
class ModelRecorder : public QObject {
public:
  explicit ModelRecorder(const QAbstractItemModel& model) {
    connect(&model, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex&, int first, int last) { note("+" + range(first, last)); });
    connect(&model, &QAbstractItemModel::rowsRemoved, this,
            [this](const QModelIndex&, int first, int last) { note("-" + range(first, last)); });
    connect(&model, &QAbstractItemModel::rowsMoved, this,
            [this](const QModelIndex&, int first, int last, const QModelIndex&, int to) {
              note(">" + range(first, last) + " before " + std::to_string(to));
            });
    connect(&model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& first, const QModelIndex& last) {
              note("~" + range(first.row(), last.row()));
            });
    connect(&model, &QAbstractItemModel::modelReset, this, [this] { note("reset"); });
    connect(&model, &QAbstractItemModel::layoutChanged, this, [this] { note("layout"); });
  }

  const std::string& text() const { return text_; }
  void clear() { text_.clear(); }

private:
  static std::string range(int first, int last) {
    return std::to_string(first) + (first == last ? "" : ".." + std::to_string(last));
  }
  void note(const std::string& line) { text_ += line + "\n"; }

  std::string text_;
};

} // namespace tamberline
