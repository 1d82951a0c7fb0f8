#include "Platform/Linux/PowerSupplies.h"

#include <algorithm>
#include <optional>
#include <vector>

#include <QDir>

#include "Platform/Linux/KernelFile.h"

namespace wexel {

namespace {

enum State { Unknown = 0, Unplugged = 1, Charging = 2, Full = 3 };

struct Cell {
    State state = Unknown;
    std::optional<double> level; // 0 to 1
    double fullEnergy = 0; // in the battery's own unit; 0 when it does not tell
};

std::optional<double> number(const QString &path)
{
    bool isNumber = false;
    const double value = readKernelValue(path).toDouble(&isNumber);
    return isNumber ? std::optional(value) : std::nullopt;
}

State stateOf(const QByteArray &status, const std::optional<double> &level)
{
    if (status == "Discharging")
        return Unplugged;
    if (status == "Full")
        return Full;
    if (status == "Charging" || status == "Not charging")
        return status == "Not charging" && level == 1.0 ? Full : Charging;
    return Unknown;
}

std::optional<Cell> cellAt(const QString &folder)
{
    const bool isBattery = readKernelValue(folder + QStringLiteral("/type")) == "Battery";
    const bool isOfPeripheral = readKernelValue(folder + QStringLiteral("/scope")) == "Device";
    if (!isBattery || isOfPeripheral || readKernelValue(folder + QStringLiteral("/present")) == "0")
        return std::nullopt;
    Cell cell;
    if (const auto percent = number(folder + QStringLiteral("/capacity")))
        cell.level = std::clamp(*percent, 0.0, 100.0) / 100.0;
    cell.state = stateOf(readKernelValue(folder + QStringLiteral("/status")), cell.level);
    cell.fullEnergy = number(folder + QStringLiteral("/energy_full")).value_or(0);
    return cell;
}

State commonState(const std::vector<Cell> &cells)
{
    const auto isIn = [](State state) { return [state](const Cell &cell) { return cell.state == state; }; };
    for (const State state : {Charging, Unplugged}) {
        if (std::any_of(cells.begin(), cells.end(), isIn(state)))
            return state;
    }
    return !cells.empty() && std::all_of(cells.begin(), cells.end(), isIn(Full)) ? Full : Unknown;
}

// Weighted by size where every battery tells its size.
float commonLevel(const std::vector<Cell> &cells)
{
    const bool areSizesKnown
        = std::all_of(cells.begin(), cells.end(), [](const Cell &cell) { return cell.fullEnergy > 0; });
    double sum = 0;
    double weights = 0;
    for (const Cell &cell : cells) {
        if (!cell.level)
            continue;
        const double weight = areSizesKnown ? cell.fullEnergy : 1.0;
        sum += *cell.level * weight;
        weights += weight;
    }
    return weights > 0 ? static_cast<float>(sum / weights) : -1.0F;
}

} // namespace

PowerSupplies::PowerSupplies(QString folder) : m_folder(std::move(folder)) { }

BatteryFact PowerSupplies::battery() const
{
    const QDir folder(m_folder);
    std::vector<Cell> cells;
    for (const QString &name : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (const auto cell = cellAt(folder.filePath(name)))
            cells.push_back(*cell);
    }
    return {commonState(cells), commonLevel(cells)};
}

} // namespace wexel
