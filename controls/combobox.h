#pragma once

#include <QtCore/QStringList>
#include <QtCore/QVariant>
#include <QtQuick/QQuickItem>

class QQuickComboBox;
class QQuickImage;
class QQuickRectangle;

namespace QSP {

/// A drop-down list: the toolkit's combo box in the looks of the screen.
///
/// Entries are records with a "name". Made in the screen's engine; without one
/// it stays empty. Closes its list when the screen is hidden.
class ComboBox : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(int currentIndex READ currentIndex WRITE setCurrentIndex NOTIFY currentIndexChanged)
    Q_PROPERTY(QVariant model READ model WRITE setModel NOTIFY modelChanged)
    Q_PROPERTY(int fontPixelSize READ fontPixelSize WRITE setFontPixelSize NOTIFY fontPixelSizeChanged)

public:
    explicit ComboBox(QQuickItem *parent = nullptr);
    ~ComboBox() override;
    static void registerType();

    /// -1 when nothing is selected.
    int currentIndex() const;
    void setCurrentIndex(int index);

    QVariant model() const;
    /// Replaces the entries and keeps the selected position, without currentIndexChanged.
    /// Plain strings are taken as the names of their records.
    void setModel(const QVariant &model);
    void setStringListModel(const QStringList &names);

    /// Size of the texts in pixels.
    int fontPixelSize() const { return m_fontPixelSize; }
    void setFontPixelSize(int size);

signals:
    /// The operator picked an entry, be it the current one.
    void activated(int index);
    void currentIndexChanged();
    void modelChanged();
    void fontPixelSizeChanged();

protected:
    void releaseResources() override;

private:
    void dressBox();
    void dressPopup();
    void connectBox();
    void followIndex();
    void adjustToHeight();
    void fitList();

    QQuickComboBox *m_combo = nullptr;
    QQuickRectangle *m_background = nullptr;
    QQuickRectangle *m_popupBackground = nullptr;
    QQuickRectangle *m_popupFrame = nullptr;
    QQuickImage *m_indicator = nullptr;
    QMetaObject::Connection m_indexConnection;
    int m_fontPixelSize = 20;
};

} // namespace QSP

QML_DECLARE_TYPE(QSP::ComboBox)
