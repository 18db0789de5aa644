#include "FilledLetter.h"
#include "PdfProbe.h"
#include "TDocxExporter.h"
#include "TPdfExporter.h"
#include "TPrintLayoutView.h"
#include "TestDocx.h"

#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <gtest/gtest.h>

using engine::TPrintLayoutView;

namespace {

QByteArray twoPageDocx() {
    return TestDocx()
        .body(QStringLiteral("<w:p><w:r><w:t>Seite eins</w:t></w:r></w:p><w:p><w:pPr><w:pageBreakBefore/>"
                             "</w:pPr><w:r><w:t>Seite zwei</w:t></w:r></w:p>"))
        .bytes();
}

class PrintLayoutViewFixture : public ::testing::Test {
protected:
    void SetUp() override {
        view.resize(900, 700);
        view.setDocument(&letter.document());
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
        view.setFocus();
    }

    QTextDocument& body() { return letter.document().body().text(); }
    int positionOf(const QString& text) { return letter.document().body().findFirst(text).selectionStart(); }
    void clickAt(int position) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier,
                          view.viewportPointOf(position).toPoint());
    }

    FilledLetter letter;
    TPrintLayoutView view;
};

struct TFitCase {
    int width;
    int height;
};

} // namespace

TEST(PrintLayoutView, PageFitLeavesAHundredPixelsOfTheControl) {
    EXPECT_DOUBLE_EQ(TPrintLayoutView::pageFitZoom(900, 400), 2.0);
    EXPECT_DOUBLE_EQ(TPrintLayoutView::pageFitZoom(100, 794), 0.0);
    EXPECT_DOUBLE_EQ(TPrintLayoutView::pageFitZoom(500, 0), 1.0);
}

TEST_F(PrintLayoutViewFixture, ZoomToPageWidthAndHeightFollowTheSectionsPageAndTheResolution) {
    const engine::TDocSection& section = letter.document().sections().front();
    // document units are 1/300 inch
    const double pageWidth = section.pageWidthInDocumentUnits() / 300.0 * view.logicalDpiX();
    const double pageHeight = section.pageHeightInDocumentUnits() / 300.0 * view.logicalDpiY();
    for (const TFitCase& size : {TFitCase{900, 700}, TFitCase{1400, 1100}}) {
        view.resize(size.width, size.height);
        view.ZoomToPageWidth();
        EXPECT_NEAR(view.zoomFactor(), (size.width - 100) / pageWidth, 1e-9) << size.width;
        view.ZoomToPageHeight();
        EXPECT_NEAR(view.zoomFactor(), (size.height - 100) / pageHeight, 1e-9) << size.height;
    }
}

TEST_F(PrintLayoutViewFixture, FittingShowsTheTopOfThePageOrTheWholePage) {
    letter.document().loadOpenXml(twoPageDocx());
    view.setZoomFactor(0.5);
    view.ZoomToPageWidth();
    EXPECT_EQ(view.verticalScrollBar()->value(), 0);

    view.setZoomFactor(2.0);
    view.verticalScrollBar()->setValue(int(view.geometry().pageRect(1).top()) + 200);
    view.ZoomToPageHeight();
    const QRectF second = view.geometry().pageRect(1).translated(0, -view.verticalScrollBar()->value());
    EXPECT_TRUE(QRectF(view.viewport()->rect()).contains(second));
}

TEST_F(PrintLayoutViewFixture, ZoomStaysWithinItsBounds) {
    view.resize(120, 110);
    view.ZoomToPageWidth();
    EXPECT_EQ(view.zoomFactor(), TPrintLayoutView::kMinimumZoom);
    view.setZoomFactor(40);
    EXPECT_EQ(view.zoomFactor(), TPrintLayoutView::kMaximumZoom);
}

TEST_F(PrintLayoutViewFixture, PageAtFullSizeMeasuresItsPhysicalSize) {
    view.setZoomFactor(1.0);
    const double widthInches = letter.document().sections().front().pageWidthInDocumentUnits() / 300.0;
    EXPECT_NEAR(view.geometry().pageRect(0).width(), widthInches * view.logicalDpiX(), 1e-6);
    EXPECT_EQ(view.pageCount(), 1);
}

TEST_F(PrintLayoutViewFixture, CtrlWheelZoomsAndPlainWheelScrolls) {
    view.setZoomFactor(1.0);
    const QPointF at(300, 300);
    QWheelEvent zoomIn(at, view.viewport()->mapToGlobal(at), QPoint(), QPoint(0, 120), Qt::NoButton,
                       Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view.viewport(), &zoomIn);
    EXPECT_NEAR(view.zoomFactor(), 1.1, 1e-9);

    const int before = view.verticalScrollBar()->value();
    QWheelEvent scroll(at, view.viewport()->mapToGlobal(at), QPoint(), QPoint(0, -120), Qt::NoButton,
                       Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view.viewport(), &scroll);
    EXPECT_GT(view.verticalScrollBar()->value(), before);
    EXPECT_NEAR(view.zoomFactor(), 1.1, 1e-9);
}

TEST_F(PrintLayoutViewFixture, ClickPlacesTheCaretAndTypingGoesThereUntilUndone) {
    const QString original = letter.document().body().plainText();
    const int at = positionOf(QStringLiteral("Lumbalgie"));
    clickAt(at);
    EXPECT_EQ(view.editor().position(), at);

    QTest::keyClicks(&view, QStringLiteral("akute "));
    EXPECT_TRUE(letter.document().body().plainText().contains(QStringLiteral("Diagnose: akute Lumbalgie")));
    EXPECT_EQ(view.editor().position(), at + 6);

    QTest::keyClick(&view, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(letter.document().body().plainText(), original);
    QTest::keyClick(&view, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_TRUE(letter.document().body().plainText().contains(QStringLiteral("Diagnose: akute Lumbalgie")));
}

TEST_F(PrintLayoutViewFixture, AnEditReachesThePdf) {
    clickAt(positionOf(QStringLiteral("Lumbalgie")) + QStringLiteral("Lumbalgie").size());
    QTest::keyClicks(&view, QStringLiteral(" Quarkfleckmuster"));
    const PdfProbe probe(engine::TPdfExporter::toPdf(letter.document()));
    EXPECT_TRUE(probe.text().simplified().contains(QStringLiteral("Diagnose: Lumbalgie Quarkfleckmuster")));
    EXPECT_EQ(probe.pageCount(), 1);
}

TEST_F(PrintLayoutViewFixture, AnEditIsSavedWithTheDocx) {
    clickAt(positionOf(QStringLiteral("Lumbalgie")));
    QTest::keyClicks(&view, QStringLiteral("chronische "));
    engine::TDocument reloaded;
    reloaded.loadOpenXml(engine::TDocxExporter::toDocx(letter.document()));
    EXPECT_TRUE(reloaded.body().plainText().contains(QStringLiteral("Diagnose: chronische Lumbalgie")));
}

TEST_F(PrintLayoutViewFixture, EnterAndBackspaceSplitAndJoinAParagraph) {
    const int blocks = body().blockCount();
    clickAt(positionOf(QStringLiteral("Physiotherapeutischer")));
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(body().blockCount(), blocks + 1);
    QTest::keyClick(&view, Qt::Key_Backspace);
    EXPECT_EQ(body().blockCount(), blocks);
}

TEST_F(PrintLayoutViewFixture, DragSelectsAndCopyGivesThePlainText) {
    const int start = positionOf(QStringLiteral("Physiotherapeutischer"));
    const QString heading = QStringLiteral("Physiotherapeutischer Bericht");
    QTest::mousePress(view.viewport(), Qt::LeftButton, Qt::NoModifier, view.viewportPointOf(start).toPoint());
    QMouseEvent drag(QEvent::MouseMove, view.viewportPointOf(start + heading.size()),
                     view.viewport()->mapToGlobal(view.viewportPointOf(start + heading.size())), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &drag);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier,
                        view.viewportPointOf(start + heading.size()).toPoint());
    EXPECT_EQ(view.editor().selectedText(), heading);
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), heading);
}

TEST_F(PrintLayoutViewFixture, ArrowAndPageKeysMoveTheCaretAndTheViewFollows) {
    view.setZoomFactor(2.0);
    clickAt(0);
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(body().findBlock(view.editor().position()).blockNumber(), 1);
    const int scrolled = view.verticalScrollBar()->value();
    QTest::keyClick(&view, Qt::Key_PageDown);
    EXPECT_GT(view.editor().position(), positionOf(QStringLiteral("Physiotherapeutischer")));
    EXPECT_GT(view.verticalScrollBar()->value(), scrolled);
    QTest::keyClick(&view, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(view.editor().position(), body().characterCount() - 1);
    const QPointF caret = view.viewportPointOf(view.editor().position());
    EXPECT_TRUE(QRectF(view.viewport()->rect()).contains(caret));
}

TEST_F(PrintLayoutViewFixture, RebuildShowsTheNewLetterOnceItIsCompleteAndClearsUndo) {
    clickAt(positionOf(QStringLiteral("Lumbalgie")));
    QTest::keyClicks(&view, QStringLiteral("Weg"));
    view.setZoomFactor(1.5);
    view.verticalScrollBar()->setValue(300);

    letter.document().beginUpdate();
    letter.document().loadOpenXml(twoPageDocx());
    EXPECT_EQ(view.pageCount(), 1);
    letter.document().endUpdate();
    EXPECT_EQ(view.pageCount(), 2);

    letter.rebuild();
    EXPECT_EQ(view.pageCount(), 1);
    EXPECT_FALSE(letter.document().body().plainText().contains(QStringLiteral("Weg")));
    EXPECT_FALSE(body().isUndoAvailable());
    EXPECT_EQ(view.editor().position(), 0);
    EXPECT_EQ(view.verticalScrollBar()->value(), 300);
    QTest::keyClick(&view, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(letter.document().body().plainText().contains(QStringLiteral("Weg")));
}

TEST_F(PrintLayoutViewFixture, WithoutDocumentTheViewIsEmptyAndTakesNoKeys) {
    view.setDocument(nullptr);
    EXPECT_EQ(view.pageCount(), 0);
    QTest::keyClicks(&view, QStringLiteral("abc"));
    EXPECT_FALSE(view.grab().isNull());
    view.ZoomToPageWidth();
    EXPECT_NEAR(view.zoomFactor(), (view.width() - 100) / view.pageSizeAt100().width(), 1e-9);
    // the letter no longer reaches the view
    letter.rebuild();
    EXPECT_EQ(view.pageCount(), 0);
}

TEST(PrintLayoutView, ADocumentThatGoesFirstLeavesTheViewUnharmed) {
    TPrintLayoutView view;
    {
        FilledLetter letter;
        view.setDocument(&letter.document());
        EXPECT_EQ(view.pageCount(), 1);
        view.setDocument(nullptr);
    }
    auto letter = std::make_unique<FilledLetter>();
    {
        TPrintLayoutView shortLived;
        shortLived.setDocument(&letter->document());
    }
    letter->rebuild();
    EXPECT_EQ(view.pageCount(), 0);
}

// Set ORVENNA_SHOT_DIR to keep the pictures of the view for a look.
TEST_F(PrintLayoutViewFixture, ShowsWhitePagesOnGreyAtPageWidthAndAsWholePage) {
    const QString shots = qEnvironmentVariable("ORVENNA_SHOT_DIR");
    const auto pageOnScreen = [this] {
        return view.geometry().pageRect(0).translated(-view.horizontalScrollBar()->value(),
                                                      -view.verticalScrollBar()->value());
    };

    view.ZoomToPageWidth();
    // the scroll bars settle in the event loop
    QApplication::processEvents();
    const QImage wide = view.viewport()->grab().toImage();
    const QRectF widePage = pageOnScreen();
    EXPECT_NEAR(widePage.center().x(), view.viewport()->width() / 2.0, 1.0);
    EXPECT_NE(wide.pixelColor(2, 2), QColor(Qt::white));
    // the left margin of the page is empty paper
    EXPECT_EQ(wide.pixelColor(int(widePage.left()) + 10, view.viewport()->height() / 2), QColor(Qt::white));
    if (!shots.isEmpty())
        view.grab().save(shots + QStringLiteral("/view-page-width.png"));

    view.ZoomToPageHeight();
    QApplication::processEvents();
    EXPECT_FALSE(view.verticalScrollBar()->isVisible());
    const QRectF wholePage = pageOnScreen();
    EXPECT_TRUE(QRectF(view.viewport()->rect()).contains(wholePage));
    const QImage whole = view.viewport()->grab().toImage();
    EXPECT_EQ(whole.pixelColor(wholePage.center().toPoint() + QPoint(0, int(wholePage.height() * 0.45))),
              QColor(Qt::white));
    if (!shots.isEmpty())
        view.grab().save(shots + QStringLiteral("/view-whole-page.png"));
}
