// Nothing but resources.
namespace dialogs_module {
extern const int Present;
const int Present = 1;
}  // namespace dialogs_module
