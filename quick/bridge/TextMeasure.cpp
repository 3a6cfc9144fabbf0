#include "quick/bridge/TextMeasure.h"

#include <QQmlProperty>

namespace orrelo::quick {

// The text is set last, since a KitText with a text is laid out for each of its properties.
void TextMeasure::set(const QString& text, double width, const Style& style) const {
  text_.setProperty("text", QString());
  text_.setWidth(width);
  text_.setProperty("size", style.size);
  text_.setProperty("maximumScale", style.maximumScale);
  text_.setProperty("lineHeight", style.lineHeight);
  QQmlProperty::write(&text_, QStringLiteral("font.bold"), style.isBold);
  text_.setProperty("text", text);
}

double TextMeasure::height(const QString& text, double width, const Style& style) const {
  if (text.isEmpty()) return 0.0;
  set(text, width, style);
  return text_.implicitHeight();
}

double TextMeasure::width(const QString& text, const Style& style) const {
  set(text, 0.0, style);
  return text_.implicitWidth();
}

double TextMeasure::textScale() const {
  return text_.property("textScale").toDouble();
}

}  // namespace orrelo::quick
