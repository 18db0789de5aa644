#pragma once

#include "TQuestionPair.h"

#include <QString>

// One line of the catalogue page and of the letter's content block: a heading, or an answer
// box with its label.
struct TContentInfo {
    // the heading's text, or the description behind the answer box
    QString Caption;
    bool IsHeader = false;
    // one tab per level for an answer box: one at question level, two in a subcategory
    QString Indent;
    // the answer box, as an index into TQuestionCatalogue::Boxes(); -1 for a heading
    int Combo = -1;
    // the name of the question or subcategory, by which presets address it
    QString QuestionName;
    // the kept answers in list order; the box's item index is an index into them
    TQuestionPairArray QuestionPairs;
};
