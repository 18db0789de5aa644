#pragma once

#include <QList>
#include <QString>

// One answer of a question: its stable key and the text shown and printed.
struct TQuestionPair {
    QString Code;
    QString Caption;

    friend bool operator==(const TQuestionPair&, const TQuestionPair&) = default;
};

using TQuestionPairArray = QList<TQuestionPair>;
