/// Loads a folder of schemas into an engine, and prints the resident bytes per definition: of this
/// whole process, and by how much they grew. A process of its own, so that nothing is resident yet.
///   resident FOLDER
#include <TrelvonUnits/TrelvonUnits.h>

#include <unistd.h>

#include <cstddef>
#include <cstdio>
#include <memory>

namespace {

double residentBytes() {
  std::FILE* const file = std::fopen("/proc/self/statm", "r");
  long pages = 0;
  if (file == nullptr || std::fscanf(file, "%*d %ld", &pages) != 1) std::perror("/proc/self/statm");
  if (file != nullptr) std::fclose(file);
  return static_cast<double>(pages) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) return 2;
  residentBytes();  // the second call needs nothing new
  const double before = residentBytes();
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  Schemas::SchemaUtility::addDefinitionsFromFolder(arguments[1], *engine);
  const double after = residentBytes();
  const std::size_t definitions = engine->getDimensions().size() + engine->getFactors().size() +
                                  engine->getUnits().size() + engine->getSymbols().size() +
                                  engine->getQuantities().size();
  const auto each = [&](double bytes) { return bytes / static_cast<double>(definitions); };
  std::printf("%.1f %.1f\n", each(after), each(after - before));
}
