// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

/// One test class, registered under the name of its file: tst_eventlog.cpp is "eventlog".
struct RegisteredTest
{
    using Factory = QObject *(*)();

    /// Adds the class to the list that the runner works through; called by static initialisation.
    RegisteredTest(const char *file, Factory make);

    QString name;
    Factory make; ///< Builds the test object; the runner owns and deletes it.
};

/// Runs the registered classes, or the one whose name stands first in the arguments; further arguments go to
/// QtTest. Everything happens in a home folder of the run's own. Returns the process's exit code.
int runRegisteredTests(int argc, char **argv);

/// Puts a QtTest class into the runner. Stands once at the end of its tst_<name>.cpp.
#define REGISTER_TEST(TestClass)                                                                                       \
    static const RegisteredTest registered##TestClass(__FILE__, []() -> QObject * { return new TestClass; });
