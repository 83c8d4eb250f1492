// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/groupdialog.h"
#include "settings/settingsprobe.h"
#include "support/dialogs.h"
#include "support/testmain.h"

#include <QInputDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

namespace {

/// Enters @p text into the next dialog, which asks for one, and notes what it looks like in @p seen.
void answerWith(DialogAnswers &answers, const QString &text, QStringList *seen = nullptr)
{
    answers.handle([text, seen](QDialog *dialog) {
        auto *input = qobject_cast<QInputDialog *>(dialog);
        if (input != nullptr && seen != nullptr)
            *seen = QStringList{input->windowTitle(), input->labelText(), input->textValue()};
        if (input != nullptr)
            input->setTextValue(text);
        dialog->accept();
    });
}

struct EditedList
{
    explicit EditedList(QVector<QString> patterns) : list(std::move(patterns))
    {
        if (!dialog.setPatterns(&list))
            qFatal("the list is not taken");
        dialog.show();
    }

    QListWidget *rows() const { return dialog.findChild<QListWidget *>(QStringLiteral("patternsListWidget")); }
    QStringList texts() const
    {
        QStringList found;
        for (int row = 0; row < rows()->count(); ++row)
            found.append(rows()->item(row)->text());
        return found;
    }
    void click(const char *button) const { dialog.findChild<QPushButton *>(QString::fromLatin1(button))->click(); }

    QVector<QString> list;
    GroupDialog dialog;
};

} // namespace

class TestGroupDialog : public QObject
{
    Q_OBJECT

private slots:
    void form();
    void nullList();
    void showsTheList();
    void secondListReplacesTheFirst();
    void newPattern();
    void newPatternWithoutText();
    void editPattern();
    void editPatternWithoutText();
    void editWithoutCurrentItem();
    void deletePattern();
    void deleteWithoutCurrentRow();
    void okWritesTheRows();
    void okOnAnEmptyList();
    void leavingWithoutOk_data();
    void leavingWithoutOk();
    void language();
};

void TestGroupDialog::form()
{
    const GroupDialog dialog;
    QCOMPARE(dialog.objectName(), QStringLiteral("GroupDialog"));
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Edit Patterns"));
    const QHash<QString, QString> buttons{{"newButton", "New..."},
                                          {"editButton", "Edit..."},
                                          {"deleteButton", "Delete"},
                                          {"okButton", "OK"},
                                          {"cancelButton", "Cancel"}};
    QHash<QString, QString> found;
    for (const auto *button : dialog.findChildren<QPushButton *>())
        found.insert(button->objectName(), button->text());
    QCOMPARE(found, buttons);
    const auto *label = dialog.findChild<QLabel *>();
    QCOMPARE(label->text(), QStringLiteral("Patterns:"));
    QCOMPARE(label->buddy()->objectName(), QStringLiteral("patternsListWidget"));
}

void TestGroupDialog::nullList()
{
    GroupDialog dialog;
    QVERIFY(!dialog.setPatterns(nullptr));
}

void TestGroupDialog::showsTheList()
{
    const EditedList edited({"b", "a", "b", ""});
    QCOMPARE(edited.texts(), QStringList({"b", "a", "b", ""}));
}

void TestGroupDialog::secondListReplacesTheFirst()
{
    EditedList edited({"a", "b"});
    QVector<QString> other{"c"};
    QVERIFY(edited.dialog.setPatterns(&other));
    QCOMPARE(edited.texts(), QStringList({"c"}));
    edited.click("okButton");
    QCOMPARE(other, QVector<QString>({"c"}));
    QCOMPARE(edited.list, QVector<QString>({"a", "b"}));
}

void TestGroupDialog::newPattern()
{
    const EditedList edited({"a"});
    DialogAnswers answers;
    QStringList seen;
    answerWith(answers, QStringLiteral("\\bint\\b"), &seen);
    edited.click("newButton");
    QCOMPARE(seen, QStringList({"New pattern", "New element's pattern: ", ""}));
    QCOMPARE(edited.texts(), QStringList({"a", "\\bint\\b"}));
    // Doubles are the user's business.
    answerWith(answers, QStringLiteral("a"));
    edited.click("newButton");
    QCOMPARE(edited.texts(), QStringList({"a", "\\bint\\b", "a"}));
    QCOMPARE(edited.list, QVector<QString>({"a"}));
}

void TestGroupDialog::newPatternWithoutText()
{
    const EditedList edited({"a"});
    DialogAnswers answers;
    answerWith(answers, QString());
    edited.click("newButton");
    answers.reject();
    edited.click("newButton");
    QCOMPARE(edited.texts(), QStringList({"a"}));
    QCOMPARE(answers.seen().size(), 2);
}

void TestGroupDialog::editPattern()
{
    const EditedList edited({"a", "b"});
    edited.rows()->setCurrentRow(1);
    DialogAnswers answers;
    QStringList seen;
    answerWith(answers, QStringLiteral("c"), &seen);
    edited.click("editButton");
    QCOMPARE(seen, QStringList({"Edit pattern", "Edit element's pattern: ", "b"}));
    QCOMPARE(edited.texts(), QStringList({"a", "c"}));
    answers.reject();
    edited.click("editButton");
    QCOMPARE(edited.texts(), QStringList({"a", "c"}));
}

void TestGroupDialog::editPatternWithoutText()
{
    const EditedList edited({"a", "b"});
    edited.rows()->setCurrentRow(0);
    DialogAnswers answers;
    answerWith(answers, QString());
    edited.click("editButton");
    QCOMPARE(edited.texts(), QStringList({"a", "b"}));
}

void TestGroupDialog::editWithoutCurrentItem()
{
    const EditedList edited({"a"});
    edited.rows()->setCurrentRow(-1);
    const DialogAnswers answers;
    edited.click("editButton");
    QCOMPARE(answers.seen().size(), 0);
    QCOMPARE(edited.texts(), QStringList({"a"}));
}

void TestGroupDialog::deletePattern()
{
    const EditedList edited({"a", "b", "c"});
    edited.rows()->setCurrentRow(1);
    edited.click("deleteButton");
    QCOMPARE(edited.texts(), QStringList({"a", "c"}));
    edited.click("deleteButton");
    edited.click("deleteButton");
    edited.click("deleteButton");
    QCOMPARE(edited.texts(), QStringList());
    QCOMPARE(edited.list, QVector<QString>({"a", "b", "c"}));
}

void TestGroupDialog::deleteWithoutCurrentRow()
{
    const EditedList edited({"a"});
    edited.rows()->setCurrentRow(-1);
    edited.click("deleteButton");
    QCOMPARE(edited.texts(), QStringList({"a"}));
}

void TestGroupDialog::okWritesTheRows()
{
    const EditedList edited({"a", "b", "c"});
    edited.rows()->setCurrentRow(0);
    edited.click("deleteButton");
    DialogAnswers answers;
    answerWith(answers, QStringLiteral("d"));
    edited.click("newButton");
    edited.click("okButton");
    QCOMPARE(edited.list, QVector<QString>({"b", "c", "d"}));
    QVERIFY(!edited.dialog.isVisible());
}

void TestGroupDialog::okOnAnEmptyList()
{
    const EditedList edited({"a"});
    edited.rows()->setCurrentRow(0);
    edited.click("deleteButton");
    edited.click("okButton");
    QVERIFY(edited.list.isEmpty());
}

void TestGroupDialog::leavingWithoutOk_data()
{
    QTest::addColumn<bool>("byButton");
    QTest::newRow("Cancel") << true;
    QTest::newRow("title bar") << false;
}

void TestGroupDialog::leavingWithoutOk()
{
    QFETCH(const bool, byButton);
    EditedList edited({"a", "b"});
    edited.rows()->setCurrentRow(0);
    edited.click("deleteButton");
    if (byButton)
        edited.click("cancelButton");
    else
        edited.dialog.close();
    QVERIFY(!edited.dialog.isVisible());
    QCOMPARE(edited.list, QVector<QString>({"a", "b"}));
}

void TestGroupDialog::language()
{
    EditedList edited({"a"});
    const MarkedLanguage language;
    language.announceTo(&edited.dialog);
    QCOMPARE(edited.dialog.windowTitle(), language.mark + "Edit Patterns");
    QCOMPARE(edited.texts(), QStringList({"a"}));
}

REGISTER_TEST(TestGroupDialog)
#include "tst_groupdialog.moc"
