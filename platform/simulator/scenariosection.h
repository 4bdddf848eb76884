#pragma once

#include "hmi/systemset.h"

#include "simulator/jsonlines.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QVector>

#include <string>

namespace HmiSimulator {

class ScenarioReading;

/// One object of a scenario. Each reader takes a key when it is there, checks
/// type and range, and leaves the value as it was when something is wrong.
/// When the section goes, keys that nobody asked for are problems too.
class ScenarioSection
{
public:
    ScenarioSection(QJsonObject object, JsonLines::Place place, ScenarioReading &reading);
    ~ScenarioSection();
    ScenarioSection(const ScenarioSection &) = delete;
    ScenarioSection &operator=(const ScenarioSection &) = delete;

    bool has(const char *key) const;
    void read(const char *key, bool &value);
    void read(const char *key, int &value, int minimum, int maximum);
    void read(const char *key, long long &value, long long minimum, long long maximum);
    void read(const char *key, HMI::IP &value);
    void read(const char *key, HMI::MAC &value);
    /// Raw bytes: "text", {"hex": "D7B0"} or {"text": "AB", "repeat": 1000}; @p maximum bytes. What is
    /// too long is never made.
    void readBytes(const char *key, std::string &value, int maximum);
    /// One of @p names; the value is its place.
    void readChoice(const char *key, int &value, const QStringList &names);
    /// A text that nobody reads.
    void readComment();
    QJsonArray list(const char *key, int minimum, int maximum);
    /// An object below this one, empty when it is not there.
    ScenarioSection section(const char *key);
    ScenarioSection element(const char *list, int index, const QJsonValue &value);

    void refuse(const char *key, const QString &reason);

private:
    QJsonValue take(const char *key);
    QByteArray takeBytes(const char *key, int &repeat);
    ScenarioSection nested(const QString &name, const QJsonValue &value, const JsonLines::Place &place);

    QJsonObject m_object;
    JsonLines::Place m_place;
    ScenarioReading &m_reading;
    QVector<QLatin1String> m_taken;
};

} // namespace HmiSimulator
