#pragma once

#include <gtest/gtest.h>

#include <QStringList>
#include <functional>
#include <string>

#include "apps/desk/CommandLine.h"
#include "apps/desk/DeskSession.h"
#include "apps/desk/DrawingView.h"
#include "apps/desk/MainWindow.h"
#include "tests/apps/person/Person.h"
#include "tests/system/Program.h"

/// The desktop program on the sample project, and a user in front of it.
class DeskFixture : public testing::Test {
protected:
    DeskFixture();

    /// Types a line with the keyboard over the drawing and ends it with Enter.
    void TypeLine(const QString& line);
    /// The same, and waits until the person has done all that is left to do.
    void RunLine(const QString& line);
    /// Does the step once a command asks; in these words, if any are given.
    void WhenAsked(const QString& prompt, const std::function<void()>& step);
    /// What is on the command line.
    QString Said() const { return window_.Line().History(); }
    QString Prompt() const;
    desk::DrawingView& View() const { return window_.View(); }

    /// The paths of the suite's sheets, in their order.
    QStringList SheetPaths() const;
    /// Draws charts of samples of a borehole with CGRDX, so that one sheet is made and open.
    void DrawSheet(const QString& borehole, const QStringList& samples);

    void Press(picture::Point at, Qt::KeyboardModifiers keys = {});
    void Move(picture::Point to);
    void Release(picture::Point at);
    void Click(picture::Point at, Qt::KeyboardModifiers keys = {});

    /// The curves of the current drawing.
    std::vector<AcDbObjectId> Curves() const;
    /// A point of the curve's line, in the middle between two of its points.
    picture::Point PointOn(AcDbObjectId curve) const;
    /// The texts that an entity draws, in their order.
    QStringList TextsOf(AcDbObjectId entity) const;

    /// One value of the project database as text; empty for null and when there is no row.
    std::string Stored(const std::string& query) const;

    ScratchFolder scratch_;
    SampleSuite suite_;
    desk::DeskSession session_;
    desk::MainWindow window_;
    Person person_;

private:
    static desk::DeskSession& Started(desk::DeskSession& session, const SampleSuite& suite);
};
