#pragma once
// The toolkit's own texts in Spanish: context menus of fields, its dialogs for files and printers, names of keys.

#include <QTranslator>

namespace velmora::qt {

/// Installed once for the application. It needs no file of translations, and follows no language of the system.
class SpanishTexts : public QTranslator {
  public:
    using QTranslator::QTranslator;

    /// A null string, which leaves the text as it is, for one that is not known.
    QString translate(const char* context, const char* source, const char* disambiguation, int number) const override;
    bool isEmpty() const override { return false; }
};

}  // namespace velmora::qt
