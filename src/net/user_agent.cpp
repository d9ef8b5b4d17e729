#include "net/user_agent.h"

#include "core/text.h"
#include "core/version.h"

#include <QString>

QByteArray UserAgent(QStringView contact)
{
    QString printable;
    for (const QChar character : contact) {
        if (character.category() != QChar::Other_Control)
            printable.append(character);
    }
    const QByteArray shown = TrimSpaces(printable).toUtf8();
    const QByteArray program = QByteArray("TavrinWeatherUtility/") + version::kText;
    return shown.isEmpty() ? program : program + " (" + shown + ')';
}
