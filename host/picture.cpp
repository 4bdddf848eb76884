#include "host/picture.h"

#include "host/glass/glass.h"

#include <QtGui/QImageWriter>

bool savePicture(QQuickWindow *window, const QString &file, QString *error)
{
    if (!Glass::awaitFrame(window)) {
        *error = QStringLiteral("the panel is not painted");
        return false;
    }
    QImageWriter writer(file);
    if (!writer.write(Glass::picture(window))) {
        *error = file + QStringLiteral(": ") + writer.errorString();
        return false;
    }
    return true;
}
