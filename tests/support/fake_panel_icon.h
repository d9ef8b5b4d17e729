#pragma once

#include "tray/panel_icon.h"

#include <QStringList>

#include <functional>

/// An icon in a panel that is there when the test says so. Records what the panel is told.
class FakePanelIcon final : public PanelIcon
{
public:
    [[nodiscard]] bool IsShown() const override { return isPanelThere && isAdded; }

    void Add(const QIcon &icon, const QString &tip) override
    {
        calls.append(QStringLiteral("add ") + tip);
        picture = icon;
        isAdded = isPanelThere;
    }

    [[nodiscard]] bool Modify(const QIcon &icon) override
    {
        calls.append(QStringLiteral("modify"));
        if (!IsShown())
            return false;
        picture = icon;
        return true;
    }

    void Remove() override
    {
        calls.append(QStringLiteral("remove"));
        isAdded = false;
        if (whenRemoved)
            whenRemoved();
    }

    void Click(Qt::MouseButton button) { Q_EMIT Clicked(button); }

    void BringPanel()
    {
        isPanelThere = true;
        Q_EMIT PanelCame();
    }

    void TakePanelAway()
    {
        isPanelThere = false;
        isAdded = false;
        Q_EMIT PanelWent();
    }

    bool isPanelThere = false;
    bool isAdded = false;
    QIcon picture; ///< What it was told to show last.
    QStringList calls;
    std::function<void()> whenRemoved;
};
