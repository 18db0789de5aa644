#pragma once

#include "TAnswerBox.h"
#include "TContentInfo.h"
#include "TQuestionHeading.h"
#include "Variant.h"

#include <QList>
#include <QString>

// The catalogue page of the feedback wizard, without its controls: a heading per question and
// an answer box per answer list, laid out from top to bottom, and the list FContent that the
// letter's content block is written from.
class TQuestionCatalogue {
public:
    // height of an answer box in design pixels, as the standard combo box has it
    static constexpr int DefaultBoxHeight = 21;

    // Builds the page from a file name or JSON text. What cannot be used never fails: where
    // nothing at all could be read, the built-in catalogue stands in.
    void CreateQuestions(const QString& source);
    void AddContentInfo(const QString& questionName, const QString& caption, const TQuestionPairArray& pairs,
                        int combo, const QString& indent, bool isHeader);

    // the widget side tells how high its answer boxes are, in design pixels
    void setBoxHeight(int designPixels) { FBoxHeight = designPixels; }

    const QList<TContentInfo>& Content() const { return FContent; }
    const QList<TQuestionHeading>& Headings() const { return FHeadings; }
    const QList<TAnswerBox>& Boxes() const { return FBoxes; }
    QList<TAnswerBox>& Boxes() { return FBoxes; }
    // the next free vertical position on the page, in design pixels
    int ActualTop() const { return FActualTop; }
    // a Boolean once a catalogue was read: whether it had the key "questions"
    const norvik::Variant& ActualQuestions() const { return FActualQuestions; }

private:
    static norvik::Variant ParseSource(const QString& source);
    void CreateQuestionBlock(const norvik::Variant& question);
    void CreateQuestionCombo(const norvik::Variant& node, int level);

    QList<TContentInfo> FContent;
    QList<TQuestionHeading> FHeadings;
    QList<TAnswerBox> FBoxes;
    int FActualTop = 0;
    int FBoxHeight = DefaultBoxHeight;
    norvik::Variant FActualQuestions;
};
