#include "controls/combobox.h"

#include "controls/beepbutton.h"
#include "controls/leavingpress.h"
#include "controls/touchmask.h"
#include "shell/base/globalinfo.h"
#include "shell/base/palette.h"
#include "shell/base/qmltype.h"
#include "shell/base/vkbmanager.h"

#include <QtCore/QPointer>
#include <QtQml/QQmlComponent>
#include <QtQml/QQmlContext>
#include <QtQml/QQmlEngine>
#include <QtQml/QQmlProperty>
#include <QtQuick/private/qquickanchors_p.h>
#include <QtQuick/private/qquickimage_p.h>
#include <QtQuick/private/qquickitem_p.h>
#include <QtQuick/private/qquickrectangle_p.h>
#include <QtQuickTemplates2/private/qquickcombobox_p.h>
#include <QtQuickTemplates2/private/qquickpopup_p.h>

namespace QSP {

namespace {

// All that is seen is our own, so that the box looks the same in whatever style the host has its controls.
const char *const boxText = R"(
import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Templates 2.15 as T
import QQuickSystemSet.Toolkit 1.0 as Toolkit
ComboBox {
    id: _com
    property int fontPixelSize: 20
    property real pressedOpacity: 1.0
    opacity: pressed ? pressedOpacity : 1.0
    font.family: Toolkit.Palette.font
    font.pixelSize: fontPixelSize
    background: null
    indicator: null
    implicitWidth: 140
    implicitHeight: 40
    topInset: 0
    bottomInset: 0
    leftInset: 0
    rightInset: 0
    topPadding: 0
    bottomPadding: 0
    // Where the rows' texts stand, within the border of the list.
    leftPadding: 11
    rightPadding: 0
    contentItem: Text {
        // The arrow's room.
        rightPadding: 0.6 * _com.height
        text: _com.displayText
        textFormat: Text.PlainText
        font: _com.font
        color: _com.enabled ? Toolkit.Palette.text : Toolkit.Palette.disabledText
        elide: Text.ElideRight
        verticalAlignment: Text.AlignVCenter
    }
    popup: T.Popup {
        y: _com.height
        width: _com.width
        topMargin: 6
        bottomMargin: 6
        contentItem: ListView {
            clip: true
            implicitHeight: contentHeight
            model: _com.delegateModel
            currentIndex: _com.highlightedIndex
            highlightMoveDuration: 0
            ScrollIndicator.vertical: ScrollIndicator { }
        }
    }
}
)";

// The box is in scope, because rows are made in the context of its list.
const char *const rowText = R"(
import QtQuick 2.15
import QtQuick.Controls 2.15
import QQuickSystemSet.Toolkit 1.0 as Toolkit
ItemDelegate {
    width: _com.width
    height: _com.height
    background: null
    // On whole pixels of the list: a row that is painted alone must not change the edge of the one above.
    Rectangle {
        y: Math.round(parent.y) - parent.y
        width: parent.width
        height: Math.round(parent.y + parent.height) - Math.round(parent.y)
        opacity: parent.down ? _com.pressedOpacity : 1.0
        color: model.index === _com.currentIndex ? Toolkit.Palette.accentTint : Toolkit.Palette.surface
        Text {
            x: 10
            width: Math.max(0, parent.width - 2 * x)
            elide: Text.ElideRight
            anchors.verticalCenter: parent.verticalCenter
            text: modelData.name
            textFormat: Text.PlainText
            font: _com.font
            color: Toolkit.Palette.text
        }
    }
}
)";

// Owned by their engine, which may end before the process does.
struct Components {
    QPointer<QQmlComponent> box;
    QPointer<QQmlComponent> row;
};

QQmlComponent *makeComponent(QQmlEngine *engine, const char *text)
{
    Palette::registerForDocuments();
    auto *component = new QQmlComponent(engine, engine);
    component->setData(text, QUrl());
    if (!component->isReady())
        qWarning("%s", qUtf8Printable(component->errorString()));
    return component;
}

const Components &sharedComponents(QQmlEngine *engine)
{
    static Components s_components;
    if (!s_components.box || s_components.box->engine() != engine) {
        s_components.box = makeComponent(engine, boxText);
        s_components.row = makeComponent(engine, rowText);
    }
    return s_components;
}

QVariant recordOf(const QString &name)
{
    return QVariantMap{{QStringLiteral("name"), name}};
}

// Lists may hold plain names; every other kind of model passes as it is.
QVariant recordsOf(const QVariant &model)
{
    const QVariant plain =
        model.userType() == qMetaTypeId<QJSValue>() ? model.value<QJSValue>().toVariant() : model;
    if (plain.userType() != QMetaType::QVariantList && plain.userType() != QMetaType::QStringList)
        return model;
    QVariantList records = plain.toList();
    for (QVariant &record : records) {
        if (record.userType() == QMetaType::QString)
            record = recordOf(record.toString());
    }
    return records;
}

QQuickAnchors *anchorsOf(QQuickItem *item)
{
    return QQuickItemPrivate::get(item)->anchors();
}

QQuickRectangle *makeFrame(QQuickItem *parent, const QColor &border)
{
    auto *frame = new QQuickRectangle(parent);
    frame->border()->setWidth(1.0);
    frame->border()->setColor(border);
    frame->setColor(Palette::instance().surface);
    return frame;
}

} // namespace

ComboBox::ComboBox(QQuickItem *parent) : QQuickItem(parent)
{
    QQmlEngine *engine = GlobalInfo::instance().qmlEngine();
    if (!engine) {
        qWarning("A combo box needs the engine of the screen");
        return;
    }
    const Components &components = sharedComponents(engine);
    if (!components.box->isReady() || !components.row->isReady())
        return;
    m_combo = qobject_cast<QQuickComboBox *>(components.box->create(engine->rootContext()));
    if (!m_combo)
        return;
    m_combo->setDelegate(components.row);
    // Like a button: a press changes nothing yet.
    m_combo->setFocusPolicy(Qt::NoFocus);
    m_combo->setParent(this);
    m_combo->setParentItem(this);
    anchorsOf(m_combo)->setFill(this);
    TouchMask::cover(m_combo);
    dressBox();
    dressPopup();
    connectBox();
    m_combo->setProperty("fontPixelSize", m_fontPixelSize);
    m_combo->setProperty("pressedOpacity", BeepButton::pressedOpacity);
}

ComboBox::~ComboBox()
{
    if (!m_combo)
        return;
    // Leaving the scene changes the box, which would say so to what is no longer a ComboBox.
    QQuickPopup *popup = m_combo->popup();
    popup->contentItem()->disconnect(this);
    popup->disconnect(this);
    m_combo->disconnect(this);
    endPressOf(m_combo);
}

void ComboBox::releaseResources()
{
    if (m_combo)
        endPressOf(m_combo);
    QQuickItem::releaseResources();
}

void ComboBox::registerType()
{
    registerQmlType<ComboBox>();
}

void ComboBox::dressBox()
{
    QQuickItem *content = m_combo->contentItem();
    m_background = makeFrame(content, Palette::instance().fieldBorder);
    m_combo->setBackground(m_background);

    m_indicator = new QQuickImage(content);
    m_indicator->setSource(QUrl(QStringLiteral("qrc:/setting/icons/down_arrow.png")));
    anchorsOf(m_indicator)->setVerticalCenter(QQuickItemPrivate::get(content)->verticalCenter());
    anchorsOf(m_indicator)->setRight(QQuickItemPrivate::get(content)->right());
    m_combo->setIndicator(m_indicator);
}

void ComboBox::dressPopup()
{
    QQuickPopup *popup = m_combo->popup();
    m_popupBackground = makeFrame(popup->contentItem(), Palette::instance().accentFrame);
    popup->setBackground(m_popupBackground);
    popup->setPadding(1.0);

    // The rows are square and would cut the rounded corners of the frame: it is drawn over them too.
    m_popupFrame = makeFrame(m_popupBackground->parentItem(), Palette::instance().accentFrame);
    m_popupFrame->setColor(Qt::transparent);
    m_popupFrame->setZ(1.0);
    anchorsOf(m_popupFrame)->setFill(m_popupBackground);
    popup->setZ(GlobalInfo::instance().rootPopupZ());
}

void ComboBox::connectBox()
{
    QQuickPopup *popup = m_combo->popup();
    followIndex();
    connect(m_combo, &QQuickComboBox::activated, this, [this](int index) {
        BeepButton::beepIfOn();
        emit activated(index);
    });
    connect(m_combo, &QQuickComboBox::pressedChanged, this, [this] {
        if (m_combo->isPressed())
            BeepButton::beepIfOn();
    });
    connect(popup, &QQuickPopup::openedChanged, this, [this, popup] {
        m_background->border()->setColor(popup->isOpened() ? Palette::instance().accentFrame
                                                           : Palette::instance().fieldBorder);
    });
    connect(m_combo, &QQuickItem::heightChanged, this, &ComboBox::adjustToHeight);
    connect(m_combo, &QQuickItem::enabledChanged, this,
            [this] { m_indicator->setOpacity(m_combo->isEnabled() ? 1.0 : 0.4); });
    connect(popup, &QQuickPopup::aboutToShow, this, [] { VkbManager::instance().endEdit(); });
    connect(popup, &QQuickPopup::aboutToShow, this, &ComboBox::fitList);
    // A list that has lost its place would stay on the glass without it.
    connect(popup, &QQuickPopup::windowChanged, popup, &QQuickPopup::close);
    connect(popup->contentItem(), &QQuickItem::implicitHeightChanged, this, &ComboBox::fitList);
    // Also when the whole screen is hidden, whichever it is. Unlike a dialog, a list stays open when it is shown.
    connect(m_combo, &QQuickItem::visibleChanged, this, [this, popup] {
        if (!m_combo->isVisible())
            popup->close();
    });
}

void ComboBox::followIndex()
{
    m_indexConnection =
        connect(m_combo, &QQuickComboBox::currentIndexChanged, this, &ComboBox::currentIndexChanged);
}

void ComboBox::adjustToHeight()
{
    const qreal height = m_combo->height();
    const int side = static_cast<int>(height * 0.347);
    m_background->setRadius(height * 0.125);
    m_popupBackground->setRadius(height * 0.125);
    m_popupFrame->setRadius(height * 0.125);
    m_indicator->setSourceSize(QSize(side, side));
    anchorsOf(m_indicator)->setRightMargin(height * 0.25);
}

void ComboBox::fitList()
{
    // The toolkit's own rule forgets the padding, which would cut the last row.
    QQuickPopup *popup = m_combo->popup();
    const qreal wanted =
        popup->contentItem()->implicitHeight() + popup->topPadding() + popup->bottomPadding();
    const qreal room = window() ? window()->height() - popup->topMargin() - popup->bottomMargin() : wanted;
    QQmlProperty::write(popup, QStringLiteral("height"), qMin(wanted, room));
}

int ComboBox::currentIndex() const
{
    return m_combo ? m_combo->currentIndex() : -1;
}

void ComboBox::setCurrentIndex(int index)
{
    if (m_combo)
        m_combo->setCurrentIndex(index);
}

QVariant ComboBox::model() const
{
    return m_combo ? m_combo->model() : QVariant();
}

void ComboBox::setModel(const QVariant &model)
{
    if (!m_combo)
        return;
    disconnect(m_indexConnection);
    const int index = m_combo->currentIndex();
    m_combo->setModel(recordsOf(model));
    m_combo->setCurrentIndex(index);
    followIndex();
    m_combo->setTextRole(QStringLiteral("name"));
    emit modelChanged();
}

void ComboBox::setStringListModel(const QStringList &names)
{
    QVariantList records;
    records.reserve(names.size());
    for (const QString &name : names)
        records << recordOf(name);
    setModel(records);
}

void ComboBox::setFontPixelSize(int size)
{
    if (size == m_fontPixelSize)
        return;
    m_fontPixelSize = size;
    if (m_combo)
        m_combo->setProperty("fontPixelSize", size);
    emit fontPixelSizeChanged();
}

} // namespace QSP
