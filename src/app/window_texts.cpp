#include "app/window_texts.h"

#include "core/version.h"

using namespace Qt::StringLiterals;

QString WindowCaption(const QString &sessionId)
{
    const QString name = u"Tavrin Weather Utility"_s;
    return sessionId.isEmpty() ? name : name + u" - Session "_s + sessionId;
}

QString VersionText(int year)
{
    return u"Version "_s + QLatin1StringView(version::kText) + u" - (c) "_s + QString::number(year)
         + u" Tavrin Weather Utility"_s;
}
