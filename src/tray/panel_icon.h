#pragma once

#include <QIcon>
#include <QObject>
#include <QString>

/// The program's icon in the desktop's panel (its notification area), and all that the program
/// sees of the panel. A panel may be missing, and may come and go at any time.
class PanelIcon : public QObject
{
    Q_OBJECT

public:
    PanelIcon() = default;
    ~PanelIcon() override = default;
    Q_DISABLE_COPY_MOVE(PanelIcon)

    /// True while the icon is in a panel.
    [[nodiscard]] virtual bool IsShown() const = 0;

    /// Puts the icon into the panel; without a panel the icon is not visible.
    virtual void Add(const QIcon &icon, const QString &tip) = 0;

    /// Shows another picture.
    /// @return false if the icon is in no panel; it must then be removed and added again.
    [[nodiscard]] virtual bool Modify(const QIcon &icon) = 0;

    virtual void Remove() = 0; ///< Does nothing if the icon is not there.

Q_SIGNALS:
    void Clicked(Qt::MouseButton button); ///< The left or the right button.
    void PanelCame();                     ///< The icon is not in it yet.
    void PanelWent();                     ///< The icon went with it.
};
