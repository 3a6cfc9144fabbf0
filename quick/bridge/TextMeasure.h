#pragma once

#include <QQuickItem>
#include <QString>

namespace orrelo::quick {

/// Measures texts with one KitText item, so that the size is that of the item which will show the text. The
/// item must be invisible and has the property `textScale`, the user's text scale.
class TextMeasure {
 public:
  /// The properties of a KitText that affect its size, with its defaults. Sizes are before the text scale.
  struct Style {
    double size = 14.0;
    bool isBold = false;
    double lineHeight = 1.15;
    double maximumScale = 2.0;
  };

  explicit TextMeasure(QQuickItem& text) : text_(text) {}

  /// The height of the text at this width, in points; 0 for an empty text, which is not shown.
  double height(const QString& text, double width, const Style& style) const;
  /// The width of the text in one line.
  double width(const QString& text, const Style& style) const;
  double textScale() const;

 private:
  void set(const QString& text, double width, const Style& style) const;

  QQuickItem& text_;
};

}  // namespace orrelo::quick
