#include "controls/keypressfilter.h"

#include "shell/base/vkbmanager.h"
#include "tests/support/operator.h"
#include "tests/support/paneltest.h"

#include <QtGui/QGuiApplication>
#include <QtQuick/private/qquicktextinput_p.h>

using QSP::KeyPressFilter;

class TestKeyPressFilter : public PanelTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void endingKeysDropTheFocus_data();
    void endingKeysDropTheFocus();
    void otherKeysReachTheField();
    void releasesPass();
    void actsOnItsTarget();
    void targetMayHaveGone();

private:
    std::unique_ptr<QQuickWindow> m_window;
    QQuickTextInput *m_field = nullptr;
};

void TestKeyPressFilter::init()
{
    beginWatch();
    m_window = std::make_unique<QQuickWindow>();
    m_window->resize(200, 100);
    m_field = new QQuickTextInput(m_window->contentItem());
    m_field->setSize({100, 30});
    Operator::show(m_window.get());
    m_field->forceActiveFocus();
}

void TestKeyPressFilter::cleanup()
{
    m_window.reset();
    endWatch();
}

void TestKeyPressFilter::endingKeysDropTheFocus_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Enter") << int(Qt::Key_Enter);
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Escape") << int(Qt::Key_Escape);
    QTest::newRow("hide") << QSP::VkbManager::hideKey;
}

void TestKeyPressFilter::endingKeysDropTheFocus()
{
    QFETCH(int, key);
    KeyPressFilter filter(m_field);
    m_field->installEventFilter(&filter);
    QSignalSpy accepted(m_field, &QQuickTextInput::accepted);
    QVERIFY(m_field->hasActiveFocus());
    Operator::key(m_window.get(), key);
    QVERIFY(!m_field->hasFocus());
    QVERIFY(!m_field->hasActiveFocus());
    QCOMPARE(accepted.count(), 0);
    QCOMPARE(m_field->text(), QString());
}

void TestKeyPressFilter::otherKeysReachTheField()
{
    KeyPressFilter filter(m_field);
    m_field->installEventFilter(&filter);
    Operator::type(m_window.get(), QStringLiteral("7a"));
    QCOMPARE(m_field->text(), QStringLiteral("7a"));
    Operator::key(m_window.get(), Qt::Key_Backspace);
    QCOMPARE(m_field->text(), QStringLiteral("7"));
    QVERIFY(m_field->hasActiveFocus());
}

void TestKeyPressFilter::releasesPass()
{
    KeyPressFilter filter(m_field);
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Return, Qt::NoModifier);
    QVERIFY(!filter.eventFilter(m_field, &release));
    QVERIFY(m_field->hasActiveFocus());
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QVERIFY(filter.eventFilter(m_field, &press));
    QVERIFY(!m_field->hasActiveFocus());
}

void TestKeyPressFilter::actsOnItsTarget()
{
    // The key is for one field, the focus of the other is dropped.
    auto *other = new QQuickTextInput(m_window->contentItem());
    KeyPressFilter filter(m_field);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QVERIFY(filter.eventFilter(other, &press));
    QVERIFY(!m_field->hasActiveFocus());
}

void TestKeyPressFilter::targetMayHaveGone()
{
    auto *target = new QQuickItem;
    KeyPressFilter filter(target);
    m_field->installEventFilter(&filter);
    delete target;
    Operator::key(m_window.get(), Qt::Key_Return);
    QVERIFY(m_field->hasActiveFocus());
}

PANEL_TEST_MAIN(TestKeyPressFilter)

#include "test_keypressfilter.moc"
