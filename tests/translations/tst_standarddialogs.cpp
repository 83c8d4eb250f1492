// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testmain.h"
#include "support/textrecorder.h"
#include "support/tsfile.h"

#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>

namespace {

/// The dialogs and menus that come with the toolkit and that a user of the program meets.
class StandardDialogs
{
public:
    StandardDialogs()
    {
        if (!QDir(m_folder.path()).mkdir(QStringLiteral("folder")))
            qFatal("cannot make a folder to list");
        m_printer.setOutputFormat(QPrinter::PdfFormat);
        m_printer.setOutputFileName(m_folder.filePath(QStringLiteral("out.pdf")));
        auto *box = new QMessageBox(&m_parent);
        // Each of the standard buttons, which are the bits from Ok to RestoreDefaults.
        for (int button = QMessageBox::Ok; button <= QMessageBox::RestoreDefaults; button *= 2)
            box->addButton(static_cast<QMessageBox::StandardButton>(button));
        box->ensurePolished();
        auto *open = new QFileDialog(&m_parent, {}, m_folder.path());
        open->setFileMode(QFileDialog::ExistingFiles);
        auto *save = new QFileDialog(&m_parent, {}, m_folder.path());
        save->setAcceptMode(QFileDialog::AcceptSave);
        for (QDialog *dialog : {static_cast<QDialog *>(box), static_cast<QDialog *>(open), static_cast<QDialog *>(save),
                                static_cast<QDialog *>(new QColorDialog(&m_parent)),
                                static_cast<QDialog *>(new QPrintDialog(&m_printer, &m_parent)),
                                static_cast<QDialog *>(new QPrintPreviewDialog(&m_printer, &m_parent)),
                                static_cast<QDialog *>(new QPageSetupDialog(&m_printer, &m_parent))}) {
            dialog->show();
        }
        (new QLineEdit(&m_parent))->createStandardContextMenu();
        (new QTextEdit(&m_parent))->createStandardContextMenu();
    }

    QMessageBox *messageBox() const { return m_parent.findChild<QMessageBox *>(); }

private:
    QTemporaryDir m_folder;
    QPrinter m_printer;
    QWidget m_parent;
};

} // namespace

class TestStandardDialogs : public QObject
{
    Q_OBJECT

private slots:
    void everyTextIsTranslated_data();
    void everyTextIsTranslated();
    void buttons_data();
    void buttons();
};

void TestStandardDialogs::everyTextIsTranslated_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("Polish") << QStringLiteral("pl");
    QTest::newRow("French") << QStringLiteral("fr");
}

void TestStandardDialogs::everyTextIsTranslated()
{
    QFETCH(QString, language);
    QTranslator translator;
    QVERIFY(translator.load(QStringLiteral("qt_") + language, laidTranslations()));
    const TextRecorder recorder;
    const StandardDialogs dialogs;
    // The file dialogs list their folder when the loop gets to it.
    QTRY_VERIFY(recorder.has("QAbstractFileIconProvider", "Folder"));
    QVERIFY(recorder.texts().size() > 100);
    QStringList untranslated;
    for (const auto &[context, source] : recorder.texts()) {
        if (translator.translate(context.toUtf8().constData(), source.toUtf8().constData()).isEmpty())
            untranslated.append(context + ": " + source);
    }
    untranslated.sort();
    QCOMPARE(untranslated.join(QLatin1String(" | ")), QString());
}

void TestStandardDialogs::buttons_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("Polish") << QStringLiteral("pl") << QStringList{"OK", "Zapisz", "&Tak", "&Nie", "Anuluj"};
    QTest::newRow("French") << QStringLiteral("fr") << QStringList{"OK", "Enregistrer", "&Oui", "&Non", "Annuler"};
}

void TestStandardDialogs::buttons()
{
    QFETCH(QString, language);
    QTranslator translator;
    QVERIFY(translator.load(QStringLiteral("qt_") + language, laidTranslations()));
    QCoreApplication::installTranslator(&translator);
    const StandardDialogs dialogs;
    QStringList texts;
    for (const QMessageBox::StandardButton button :
         {QMessageBox::Ok, QMessageBox::Save, QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel})
        texts.append(dialogs.messageBox()->button(button)->text());
    QTEST(texts, "texts");
}

REGISTER_TEST(TestStandardDialogs)
#include "tst_standarddialogs.moc"
