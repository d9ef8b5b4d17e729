#include "graph/frm_graphics.h"

#include "graph/svg_icon.h"

using namespace Qt::StringLiterals;

namespace {

/// The pictures of one set: ":/icons/<set>_00.svg" and so on.
void LoadSet(std::array<QIcon, 11> &icons, const QString &set)
{
    int frame = 0;
    for (QIcon &icon : icons)
        icon = IconFromSvg(u":/icons/%1_%2.svg"_s.arg(set).arg(frame++, 2, 10, QChar(u'0')));
}

} // namespace

/// The linker drops a library's resources unless somebody asks for them. Outside any namespace,
/// because the macro declares a function.
static void KeepIconResource()
{
    Q_INIT_RESOURCE(icons);
}

frmGraphics::frmGraphics(bool &GraphicsFormLoaded) : m_loaded(GraphicsFormLoaded)
{
    setObjectName(u"frmGraphics"_s);
    KeepIconResource();
    LoadSet(taskBarIcon, u"idle"_s);
    LoadSet(taskBarActiveIcon, u"active"_s);
    m_loaded = true;
}

frmGraphics::~frmGraphics()
{
    m_loaded = false;
}

QIcon ProgramIcon()
{
    KeepIconResource();
    return IconFromSvg(u":/icons/idle_10.svg"_s);
}
