#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QStringView>
#include <functional>
#include <utility>

namespace norvik {

// The classes that a JSON object may name under the key "ClassName" to be created as an
// object. Names are compared with only the letter-case bit of each character folded, so
// "tperson" finds "TPerson". The table is meant to be filled at start-up on the main thread.
class TJSONClassRegistry {
public:
    using Factory = std::function<QObject*()>;

    // a later registration of the same name replaces the earlier one
    static void Register(const QString& name, Factory factory);
    template <class T> static void Register() {
        Register(QString::fromLatin1(T::staticMetaObject.className()), [] { return new T; });
    }
    // a new object of the named class without parent, or nullptr when no such class is known
    static QObject* Create(QStringView name);
    static bool SameName(QStringView a, QStringView b);

private:
    static QList<std::pair<QString, Factory>>& entries();
};

} // namespace norvik
