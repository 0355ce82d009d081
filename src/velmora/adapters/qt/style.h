#pragma once
// The drawing style of fields, lists, buttons and groups.

#include <QProxyStyle>

class QStyleOptionComboBox;
class QStyleOptionGroupBox;

namespace velmora::qt {

/// Whether a field is drawn with the border of a warning.
void setWarns(QWidget& field, bool warns);

class Style : public QProxyStyle {
  public:
    Style();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;

  private:
    void drawComboBox(const QStyleOptionComboBox& option, QPainter& painter, const QWidget* widget) const;
    void drawGroup(const QStyleOptionGroupBox& option, QPainter& painter) const;
    void drawButton(const QStyleOption& option, QPainter& painter) const;
};

}  // namespace velmora::qt
