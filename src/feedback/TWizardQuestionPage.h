#pragma once

#include <QList>
#include <QWidget>

class QComboBox;
class QLabel;
class QPlainTextEdit;
class QScrollArea;
class TQuestionCatalogue;

// Page 2 of the wizard, crdContent: the questions of the catalogue in scrQuestions, a caption
// label per question and an editable combo box per answer list, each where the catalogue puts
// it, a subcategory's box with its name beside it; below them, under "Anmerkungen", the memo whose text
// follows the answers in the letter.
class TWizardQuestionPage : public QWidget {
    Q_OBJECT

public:
    // headings stand this much larger than the text of the page
    static constexpr double CaptionScale = 1.2;

    explicit TWizardQuestionPage(QWidget* AParent = nullptr);

    // the height of an answer box brought back to design pixels, as the catalogue counts
    static int BoxDesignHeight();

    // Replaces the controls of the former catalogue by those of this one, at its design
    // positions scaled to the screen. Gives the answer boxes in the catalogue's order.
    QList<QComboBox*> CreateQuestions(const TQuestionCatalogue& ACatalogue);

    QScrollArea* scrQuestions;
    QPlainTextEdit* memContent;

private:
    QWidget* FQuestions;

    void RemoveQuestions();
    QLabel* CreateCaption(const QString& AText, int ALeft, int ATop);
    void CreateBoxName(const QString& AText, const QComboBox& ABox);
    QComboBox* CreateAnswerBox(const QString& AHint, const QStringList& AItems, int ALeft, int ATop,
                               int AWidth);
};
