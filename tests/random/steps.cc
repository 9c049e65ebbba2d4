#include "tests/random/steps.h"

#include <sstream>
#include <stdexcept>

namespace random_use {

std::string WordOf(const std::vector<Step>& steps)
{
    std::ostringstream word;
    for (const Step& step : steps)
        word << static_cast<int>(step.action) << ',' << step.ok << ',' << step.file + 0 << ',' << step.control << ','
             << step.value << ',';
    return word.str();
}

std::vector<Step> StepsOf(const std::string& word)
{
    std::istringstream numbers(word);
    std::vector<Step> steps;
    char comma;
    for (int action, ok, file, control, value;
         numbers >> action >> comma >> ok >> comma >> file >> comma >> control >> comma >> value >> comma;)
        steps.push_back({static_cast<Action>(action), ok != 0, static_cast<std::uint8_t>(file),
                         static_cast<std::int16_t>(control), static_cast<std::int16_t>(value)});
    if (WordOf(steps) != word) throw std::invalid_argument("no steps, or not all of them: " + word);
    return steps;
}

}  // namespace random_use
