#pragma once
// A note behind the title of every window of the program.

#include <QObject>
#include <QString>

namespace velmora::desktop {

/// For as long as it lives; windows that were shown before keep their titles. Needs a QApplication.
class TitleNote : public QObject {
  public:
    explicit TitleNote(QString note);
    ~TitleNote() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QString note_;
};

}  // namespace velmora::desktop
