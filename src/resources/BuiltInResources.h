#pragma once

#include <QByteArray>
#include <QString>

// The resources compiled into the program. Files of the same content in the working folder or
// on the command line may replace them; these are what stands in when nothing else is given.
class BuiltInResources {
public:
    // the catalogue of questions, resource QUESTIONS, as JSON text
    static QString questions();
    // a patient, a physician and answers for a demonstration, resource DEMOCONTENT, as JSON text
    static QString demoContent();
    // the letter template, resource FEEDBACK, as DOCX bytes
    static QByteArray feedbackTemplate();

private:
    static QByteArray read(const QString& name);
};
