#include "secrets.h"
namespace velkor {
namespace Reports {
std::vector<SecretPlace> findSecrets(std::string_view, SecretContext)
{
    return {};
}
} // namespace Reports
} // namespace velkor
