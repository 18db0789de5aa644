#pragma once

#include <QList>
#include <QString>

namespace norvik {

// The LIKE match of the system: '%' stands for any run of characters, '_' for exactly one,
// and the escape character makes the next character literal. Letters are compared after
// Unicode case folding, so "Müller" matches "%MÜL%". A pattern is prepared once and can then
// be matched against many values.
class WildcardMatch {
public:
    static constexpr uint DefaultEscape = '\\';

    explicit WildcardMatch(const QString& pattern, uint escape = DefaultEscape);

    bool Matches(const QString& value) const;
    uint Escape() const { return FEscape; }

    static bool Matches(const QString& pattern, const QString& value, uint escape = DefaultEscape);

private:
    struct PatternChar {
        uint code;
        bool literal; // escaped: '%' and '_' lose their meaning
    };

    QList<PatternChar> FPattern;
    uint FEscape;
};

} // namespace norvik
