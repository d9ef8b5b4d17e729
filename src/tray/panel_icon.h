#pragma once

#include <QIcon>
#include <QObject>
#include <QString>

/// The program's icon in the desktop's panel (its notification area): the panel as far as the
/// program sees it. A panel may be missing, come and go at any time.
class PanelIcon : public QObject
{
    Q_OBJECT

public:
    PanelIcon() = default;
    ~PanelIcon() override = default;
    Q_DISABLE_COPY_MOVE(PanelIcon)

    /// True while the icon stands in a panel.
    [[nodiscard]] virtual bool IsShown() const = 0;

    /// Puts the icon into the panel; without a panel there is nothing to see of it.
    virtual void Add(const QIcon &icon, const QString &tip) = 0;

    /// Shows another picture.
    /// @return false when the icon stands in no panel; it then has to be removed and added again.
    [[nodiscard]] virtual bool Modify(const QIcon &icon) = 0;

    virtual void Remove() = 0; ///< Does nothing to an icon that is not there.

Q_SIGNALS:
    void Clicked(Qt::MouseButton button); ///< The left or the right one.
    void PanelCame();                     ///< The icon is not in it yet.
    void PanelWent();
};
