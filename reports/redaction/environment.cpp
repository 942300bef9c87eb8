#include "environment.h"

#include <QtCore/QHash>

namespace velkor {
namespace Reports {

namespace {

struct Group
{
    VariableKind kind;
    const char *names; ///< lower case, with blanks between them
};

constexpr Group groups[] = {
    {VariableKind::Harmless,
     "os number_of_processors processor_architecture processor_architew6432 processor_identifier processor_level "
     "processor_revision pathext systemdrive homedrive sessionname prompt lang language lc_all lc_ctype lc_messages lc_numeric "
     "lc_time lc_collate lc_monetary tz term colorterm firmware_type "
     "qt_scale_factor qt_auto_screen_scale_factor qt_enable_highdpi_scaling qt_scale_factor_rounding_policy qt_screen_scale_factors "
     "qt_font_dpi qt_opengl qt_opengl_buglist qt_quick_backend qt_qpa_platform qt_style_override qt_logging_rules qt_d3dcreate_multisample "
     "qsg_render_loop qsg_info libgl_always_software mesa_gl_version_override gallium_driver winedebug winearch wineuserlocale qt_debug_plugins omp_num_threads __compat_layer"},
    {VariableKind::Paths,
     "path comspec windir systemroot programfiles programfiles(x86) programfiles(arm) programw6432 programdata allusersprofile public "
     "commonprogramfiles commonprogramfiles(x86) commonprogramw6432 psmodulepath driverdata qt_plugin_path qt_qpa_platform_plugin_path "
     "qml2_import_path onedrivepublic ld_library_path xdg_data_dirs winedlloverrides winsysdir wineloader winedlldir0 winedatadir"},
    {VariableKind::Personal,
     "temp tmp tmpdir appdata localappdata userprofile homepath homeshare home onedrive onedriveconsumer onedrivecommercial"},
    {VariableKind::User, "username user logname wineusername"},
    {VariableKind::Host, "computername hostname host clientname logonserver winehostname"},
    {VariableKind::Domain, "userdomain userdomain_roamingprofile userdnsdomain"},
};

QHash<QString, VariableKind> allKinds()
{
    QHash<QString, VariableKind> kinds;
    for (const Group &group : groups) {
        for (const QString &name : QString::fromLatin1(group.names).split(QLatin1Char(' '), Qt::SkipEmptyParts))
            kinds.insert(name, group.kind);
    }
    return kinds;
}

} // namespace

VariableKind variableKind(const QString &name)
{
    static const QHash<QString, VariableKind> kinds = allKinds();
    return kinds.value(name.toLower(), VariableKind::Other);
}

} // namespace Reports
} // namespace velkor
