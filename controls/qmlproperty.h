#pragma once

#include <QtCore/QObject>

/// A plain object type, for documents' properties that carry nothing of their own yet.
class QmlProperty : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
};
