#include "tests/support/Rows.h"
#include "tests/widgets/FoldingSection.h"

#include <QKeyEvent>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <memory>

class tst_CollapsingButton : public QObject
{
    Q_OBJECT

private slots:
    void constructorSetsTheFixedProperties();
    void usesTheApplicationFontNotThatOfToolButtons();
    void setTextPutsABlankBefore();
    void setContentFoldsAtOnceWhenUnchecked();
    void setContentLeavesTheContentWhenChecked();
    void checkingUnfoldsToTheHeightPlusTen();
    void unfoldingFollowsTheCurve_data();
    void unfoldingFollowsTheCurve();
    void foldingRunsTheSameCurveBackward();
    void unfoldsAgainAfterFolding();
    void turningRoundHalfwayGoesOnFromThere();
    void grownContentUnfoldsToItsNewHeight();
    void endHeightIsNeverLowered();
    void endHeightIsRaisedFromOnePixelMore_data();
    void endHeightIsRaisedFromOnePixelMore();
    void toggleWithoutContentOnlyChangesTheArrow();
    void collapseChangesOnlyTheOtherState_data();
    void collapseChangesOnlyTheOtherState();
    void keysToggle_data();
    void keysToggle();
    void keyHeldDownTogglesOnce();
    void clickUnfoldsTheContentInItsForm();
    void foldedContentIsOutOfTheTabOrder();
    void foldingTakesTheFocusOutOfTheContent();
    void formMayGoWhileItUnfolds();
    void nullContentIsNoContent();
    void contentMayGoBeforeItsButton_data();
    void contentMayGoBeforeItsButton();
    void contentMayGoWhileItUnfolds();
};

void tst_CollapsingButton::constructorSetsTheFixedProperties()
{
    QWidget parent;
    const CollapsingButton button(&parent);

    QCOMPARE(button.parentWidget(), &parent);
    QVERIFY(button.isCheckable());
    QVERIFY(!button.isChecked());
    QCOMPARE(button.styleSheet(), QStringLiteral("background:none"));
    QCOMPARE(button.iconSize(), QSize(8, 8));
}

void tst_CollapsingButton::usesTheApplicationFontNotThatOfToolButtons()
{
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPointSize(17);
    QFont toolButtonFont = before;
    toolButtonFont.setPointSize(9);
    QApplication::setFont(font);
    QApplication::setFont(toolButtonFont, "QToolButton");
    const CollapsingButton button(nullptr);
    button.ensurePolished();
    const int used = button.font().pointSize();
    QApplication::setFont(before);
    QCOMPARE(used, 17);
}

void tst_CollapsingButton::setTextPutsABlankBefore()
{
    CollapsingButton button(nullptr);
    button.setText("Counter");
    QCOMPARE(button.text(), QStringLiteral(" Counter"));
    button.setText(QString());
    QCOMPARE(button.text(), QStringLiteral(" "));
}

void tst_CollapsingButton::setContentFoldsAtOnceWhenUnchecked()
{
    Section section;
    section.button->setContent(section.content);
    QCOMPARE(section.content->maximumHeight(), 0);
    QCOMPARE(section.button->arrowType(), Qt::RightArrow);
}

void tst_CollapsingButton::setContentLeavesTheContentWhenChecked()
{
    Section section;
    section.button->setChecked(true);
    section.button->setContent(section.content);
    QCOMPARE(section.content->maximumHeight(), QWIDGETSIZE_MAX);
    QCOMPARE(section.content->height(), Section::Height);
    QVERIFY(!section.content->isHidden());
    QCOMPARE(section.button->arrowType(), Qt::DownArrow);
}

void tst_CollapsingButton::checkingUnfoldsToTheHeightPlusTen()
{
    Section section;
    section.button->setContent(section.content);
    section.button->setChecked(true);
    QCOMPARE(section.button->arrowType(), Qt::DownArrow);
    QCOMPARE(section.content->maximumHeight(), 0);
    QTRY_COMPARE(section.content->maximumHeight(), Section::Height + 10);
}

void tst_CollapsingButton::unfoldingFollowsTheCurve_data()
{
    columns<int, int>("ms", "height");
    row("start", 0, 0);
    row("a quarter, still slow", 75, 8);
    row("half", 150, 35);
    row("three quarters, slow again", 225, 61);
    row("just before the end", 299, 69);
    row("end", 300, 70);
}

void tst_CollapsingButton::unfoldingFollowsTheCurve()
{
    QFETCH(int, ms);
    ManualClock clock;
    Section section;
    section.button->setContent(section.content);
    section.button->setChecked(true);
    clock.advanceTo(0);
    clock.advanceTo(ms);
    QFETCH(int, height);
    QVERIFY(section.mayBecome(height, height + 1));
}

void tst_CollapsingButton::foldingRunsTheSameCurveBackward()
{
    ManualClock clock;
    Section section;
    section.button->setChecked(true);
    section.button->setContent(section.content);
    section.button->setChecked(false);
    QCOMPARE(section.button->arrowType(), Qt::RightArrow);
    clock.advanceTo(0);
    QVERIFY(section.mayBecome(70, 69));
    clock.advanceTo(75);
    QVERIFY(section.mayBecome(61, 60));
    clock.advanceTo(300);
    QCOMPARE(section.content->maximumHeight(), 0);
}

void tst_CollapsingButton::unfoldsAgainAfterFolding()
{
    Section section;
    section.button->setContent(section.content);
    for (int round = 0; round < 2; ++round) {
        section.button->toggle();
        QTRY_COMPARE(section.content->maximumHeight(), Section::Height + 10);
        section.button->toggle();
        QTRY_COMPARE(section.content->maximumHeight(), 0);
    }
}

void tst_CollapsingButton::turningRoundHalfwayGoesOnFromThere()
{
    Section section;
    section.button->setContent(section.content);
    section.button->toggle();
    QTRY_VERIFY(section.content->maximumHeight() > 0);
    section.button->toggle();
    QVERIFY(section.content->maximumHeight() > 0);
    QTRY_COMPARE(section.content->maximumHeight(), 0);
    QTRY_VERIFY(section.content->isHidden());
}

void tst_CollapsingButton::grownContentUnfoldsToItsNewHeight()
{
    Section section;
    section.button->setContent(section.content);
    section.button->toggle();
    QTRY_COMPARE(section.content->maximumHeight(), Section::Height + 10);

    section.content->setMaximumHeight(QWIDGETSIZE_MAX);
    section.content->resize(100, 200);
    section.button->toggle();
    QTRY_COMPARE(section.content->maximumHeight(), 0);

    section.button->toggle();
    QTRY_COMPARE(section.content->maximumHeight(), 200);
}

void tst_CollapsingButton::endHeightIsNeverLowered()
{
    Section section;
    section.button->setContent(section.content);
    section.button->toggle();
    QTRY_COMPARE(section.content->maximumHeight(), Section::Height + 10);
    section.content->resize(100, 5);
    section.button->toggle();
    QTRY_COMPARE(section.content->maximumHeight(), 0);
    section.button->toggle();
    QTRY_COMPARE(section.content->maximumHeight(), Section::Height + 10);
}

// The end height is raised only by content that is taller, not by content of just that height.
void tst_CollapsingButton::endHeightIsRaisedFromOnePixelMore_data()
{
    columns<int, int>("height", "unfolded");
    row("one less", 69, 70);
    row("the same", 70, 70);
    row("one more", 71, 71);
}

void tst_CollapsingButton::endHeightIsRaisedFromOnePixelMore()
{
    QFETCH(int, height);
    QFETCH(int, unfolded);
    Section section;
    section.button->setChecked(true);
    section.button->setContent(section.content);
    section.content->resize(100, height);
    section.button->setChecked(false);
    QTRY_COMPARE(section.content->maximumHeight(), 0);
    section.button->setChecked(true);
    QTRY_COMPARE(section.content->maximumHeight(), unfolded);
}

void tst_CollapsingButton::toggleWithoutContentOnlyChangesTheArrow()
{
    CollapsingButton button(nullptr);
    QCOMPARE(button.arrowType(), Qt::NoArrow);
    button.toggle();
    QCOMPARE(button.arrowType(), Qt::DownArrow);
    button.toggle();
    QCOMPARE(button.arrowType(), Qt::RightArrow);
}

void tst_CollapsingButton::collapseChangesOnlyTheOtherState_data()
{
    columns<bool, bool, bool, int>("checkedBefore", "argument", "checkedAfter", "toggles");
    row("collapse a checked one", true, true, false, 1);
    row("collapse an unchecked one", false, true, false, 0);
    row("expand a checked one", true, false, true, 0);
    row("expand an unchecked one", false, false, true, 1);
}

void tst_CollapsingButton::collapseChangesOnlyTheOtherState()
{
    QFETCH(bool, checkedBefore);
    QFETCH(bool, argument);
    Section section;
    section.button->setChecked(checkedBefore);
    section.button->setContent(section.content);
    const QSignalSpy toggled(section.button, &QToolButton::toggled);

    section.button->collapse(argument);

    QTEST(section.button->isChecked(), "checkedAfter");
    QTEST(static_cast<int>(toggled.count()), "toggles");
    const bool open = section.button->isChecked();
    QTRY_COMPARE(section.content->maximumHeight() > 0, open);
}

void tst_CollapsingButton::keysToggle_data()
{
    columns<Qt::Key, bool>("key", "checked");
    row("space bar", Qt::Key_Space, true);
    row("return", Qt::Key_Return, true);
    row("enter", Qt::Key_Enter, true);
    row("a letter", Qt::Key_A, false);
}

void tst_CollapsingButton::keysToggle()
{
    QFETCH(Qt::Key, key);
    Section section;
    section.button->setContent(section.content);
    section.show();
    section.button->setFocus();
    QTest::keyClick(section.button, key);
    QTEST(section.button->isChecked(), "checked");
}

void tst_CollapsingButton::keyHeldDownTogglesOnce()
{
    CollapsingButton button(nullptr);
    for (const bool repeated : {false, true}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), repeated);
        QCoreApplication::sendEvent(&button, &press);
    }
    QVERIFY(button.isChecked());
}

void tst_CollapsingButton::clickUnfoldsTheContentInItsForm()
{
    Section section;
    section.show();
    section.button->setContent(section.content);
    QVERIFY(!section.content->isVisible());
    QTest::mouseClick(section.button, Qt::LeftButton);
    QVERIFY(section.content->isVisible());
    QTRY_VERIFY(section.content->height() >= section.field->sizeHint().height());
}

void tst_CollapsingButton::foldedContentIsOutOfTheTabOrder()
{
    Section section;
    section.show();
    section.button->setContent(section.content);
    section.before->setFocus();
    QTest::keyClick(section.before, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), section.button);
    QTest::keyClick(section.button, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), section.after);

    section.button->setFocus();
    section.button->toggle();
    QTest::keyClick(section.button, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), section.field);
}

void tst_CollapsingButton::foldingTakesTheFocusOutOfTheContent()
{
    Section section;
    section.show();
    section.button->setChecked(true);
    section.button->setContent(section.content);
    section.field->setFocus();
    QVERIFY(section.field->hasFocus());
    section.button->toggle();
    QTRY_VERIFY(!section.field->hasFocus());
    QVERIFY(QApplication::focusWidget());
}

void tst_CollapsingButton::formMayGoWhileItUnfolds()
{
    auto section = std::make_unique<Section>();
    section->show();
    section->button->setContent(section->content);
    section->button->toggle();
    const QPointer<CollapsingButton> button(section->button);
    section.reset();
    QCoreApplication::processEvents();
    QVERIFY(!button);
}

void tst_CollapsingButton::nullContentIsNoContent()
{
    CollapsingButton button(nullptr);
    button.setContent(nullptr);
    QCOMPARE(button.arrowType(), Qt::RightArrow);
    button.toggle();
    QCOMPARE(button.arrowType(), Qt::DownArrow);
    button.toggle();
    QCOMPARE(button.arrowType(), Qt::RightArrow);
    button.showContent();
    button.hideContent();
    QCOMPARE(button.arrowType(), Qt::RightArrow);
}

void tst_CollapsingButton::contentMayGoBeforeItsButton_data()
{
    columns<bool>("unfolded");
    row("folded", false);
    row("unfolded", true);
}

void tst_CollapsingButton::contentMayGoBeforeItsButton()
{
    QFETCH(bool, unfolded);
    Section section;
    section.button->setChecked(unfolded);
    section.button->setContent(section.content);
    delete section.content;
    section.button->toggle();
    QCOMPARE(section.button->arrowType(), unfolded ? Qt::RightArrow : Qt::DownArrow);
    section.button->toggle();
    QCOMPARE(section.button->arrowType(), unfolded ? Qt::DownArrow : Qt::RightArrow);
}

void tst_CollapsingButton::contentMayGoWhileItUnfolds()
{
    ManualClock clock;
    Section section;
    section.show();
    section.button->setContent(section.content);
    section.button->toggle();
    clock.advanceTo(150);
    delete section.content;
    clock.advanceTo(200);
    section.button->toggle();
    clock.advanceTo(1000);
    QCOMPARE(section.button->arrowType(), Qt::RightArrow);
}

QTEST_MAIN(tst_CollapsingButton)
#include "tst_CollapsingButton.moc"
