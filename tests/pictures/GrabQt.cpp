#include "Grab.h"

#include <QApplication>
#include <QPixmap>
#include <QWidget>

bool GrabDialog(const std::string& file) {
    // Scroll bars come and go with the events that follow.
    QApplication::processEvents();
    return QApplication::activeModalWidget()->grab().save(QString::fromStdString(file + ".png"));
}
