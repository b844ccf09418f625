#include <gpiod.h>

#include <cerrno>
#include <cstring>

#include "boardio/drivers/Drivers.h"
#include "boardio/drivers/Gpio.h"

namespace vantrellion {

namespace {

// The line levels that give the relays of bits: high for on, low with active-low.
std::vector<int> Levels(const GpioOptions& o, uint8_t bits) {
    std::vector<int> levels;
    for (size_t r = 0; r < o.outputs.size(); ++r)
        levels.push_back(((bits >> r) & 1) != o.activeLow ? 1 : 0);
    return levels;
}

class GpioBoard : public BoardLink {
  public:
    GpioBoard(std::unique_ptr<GpioLines> lines, const GpioOptions& o)
        : lines_(std::move(lines)), o_(o) {}
    ~GpioBoard() override { Close(); }

    BoardIo WriteOutputs(uint8_t bits) override {
        std::string error;
        if (!lines_->SetOutputs(Levels(o_, bits), error)) return BoardIo::Failed(error);
        return {};
    }
    BoardIo ReadOutputs() override { return Read(true, o_.activeLow); }
    BoardIo ReadInputs() override { return Read(false, false); }
    bool HasOutputs() const override { return !o_.outputs.empty(); }
    bool HasInputs() const override { return !o_.inputs.empty(); }
    void Close() override {
        if (lines_) lines_->Release();
        lines_.reset();
    }

  private:
    BoardIo Read(bool outputs, bool activeLow) {
        std::vector<int> levels;
        std::string error;
        if (!(outputs ? lines_->GetOutputs(levels, error) : lines_->GetInputs(levels, error)))
            return BoardIo::Failed(error);
        uint8_t bits = 0;
        for (size_t i = 0; i < levels.size() && i < 8; ++i)
            if ((levels[i] != 0) != activeLow) bits |= static_cast<uint8_t>(1 << i);
        return BoardIo::Value(bits);
    }

    std::unique_ptr<GpioLines> lines_;
    GpioOptions o_;
};

// libgpiod 1.6: one chip, a bulk of output lines and a bulk of input lines.
class LibgpiodLines : public GpioLines {
  public:
    explicit LibgpiodLines(gpiod_chip* chip) : chip_(chip) {}
    ~LibgpiodLines() override { Release(); }

    bool Request(const std::vector<unsigned>& outputs, const std::vector<int>& levels,
                 const std::vector<unsigned>& inputs, std::string& error) override {
        if (!Take(outputs, out_, error) || !Take(inputs, in_, error)) return false;
        if (!outputs.empty() &&
            gpiod_line_request_bulk_output(&out_, "vantrellion", levels.data()) != 0)
            return Failed(error);
        if (!inputs.empty() && gpiod_line_request_bulk_input(&in_, "vantrellion") != 0)
            return Failed(error);
        return true;
    }
    bool SetOutputs(const std::vector<int>& levels, std::string& error) override {
        return gpiod_line_set_value_bulk(&out_, levels.data()) == 0 || Failed(error);
    }
    bool GetOutputs(std::vector<int>& levels, std::string& error) override {
        return Get(out_, levels, error);
    }
    bool GetInputs(std::vector<int>& levels, std::string& error) override {
        return Get(in_, levels, error);
    }
    void Release() override {
        if (!chip_) return;
        // Closing the chip releases every line requested from it.
        gpiod_chip_close(chip_);
        chip_ = nullptr;
    }

  private:
    static bool Failed(std::string& error) {
        error = std::strerror(errno);
        return false;
    }
    bool Take(const std::vector<unsigned>& offsets, gpiod_line_bulk& bulk, std::string& error) {
        gpiod_line_bulk_init(&bulk);
        if (offsets.empty()) return true;
        std::vector<unsigned> o(offsets);
        return gpiod_chip_get_lines(chip_, o.data(), o.size(), &bulk) == 0 || Failed(error);
    }
    static bool Get(gpiod_line_bulk& bulk, std::vector<int>& levels, std::string& error) {
        levels.assign(bulk.num_lines, 0);
        if (bulk.num_lines == 0) return true;
        return gpiod_line_get_value_bulk(&bulk, levels.data()) == 0 || Failed(error);
    }

    gpiod_chip* chip_;
    gpiod_line_bulk out_{}, in_{};
};

GpioOptions ReadGpioOptions(const BoardConnection& c, std::string& error) {
    GpioOptions g;
    std::vector<long> values;
    for (const auto& [name, list] : {std::pair{"out", &g.outputs}, std::pair{"in", &g.inputs}}) {
        const auto it = c.options.find(name);
        if (it == c.options.end()) continue;
        if (!ParseNumberList(it->second, 0, 511, values) || values.size() > 8) {
            if (error.empty())
                error = std::string("the option ") + name + "=" + it->second +
                        " is not a list of up to 8 line numbers, as in 17,18,27";
            continue;
        }
        list->assign(values.begin(), values.end());
    }
    g.activeLow = NumberOption(c, "active_low", 0, 0, 1, error) == 1;
    return g;
}

std::string CheckGpio(const BoardConnection& c) {
    std::string error = UnknownOption(c, {"out", "in", "active_low"});
    if (!error.empty()) return error;
    if (c.location.empty()) return "the GPIO chip is missing (as in gpio://gpiochip0?out=17)";
    const GpioOptions g = ReadGpioOptions(c, error);
    if (error.empty() && g.outputs.empty() && g.inputs.empty())
        return "neither out= nor in= names a line";
    return error;
}

std::unique_ptr<BoardLink> OpenGpio(const BoardConnection& c, const BoardOpening& o,
                                    std::string& error) {
    const GpioOptions g = ReadGpioOptions(c, error);
    gpiod_chip* chip = gpiod_chip_open_lookup(c.location.c_str());
    if (!chip) {
        error = c.location + ": " + std::strerror(errno);
        return nullptr;
    }
    return MakeGpioBoard(std::make_unique<LibgpiodLines>(chip), g, o.wantedOutputs, error);
}

std::vector<FoundBoard> ListGpio() {
    std::vector<FoundBoard> found;
    gpiod_chip_iter* iter = gpiod_chip_iter_new();
    if (!iter) return found;
    gpiod_chip* chip = nullptr;
    gpiod_foreach_chip(iter, chip) {
        found.push_back({"gpio://" + std::string(gpiod_chip_name(chip)),
                         "GPIO chip " + std::string(gpiod_chip_label(chip)) + ", " +
                             std::to_string(gpiod_chip_num_lines(chip)) +
                             " lines (add ?out=...&in=... with the line numbers)"});
    }
    gpiod_chip_iter_free(iter);
    return found;
}

}  // namespace

std::unique_ptr<BoardLink> MakeGpioBoard(std::unique_ptr<GpioLines> lines, const GpioOptions& o,
                                         uint8_t wanted, std::string& error) {
    if (!lines->Request(o.outputs, Levels(o, wanted), o.inputs, error)) return nullptr;
    return std::make_unique<GpioBoard>(std::move(lines), o);
}

const BoardDriver GpioBoardDriver{"gpio", false, CheckGpio, OpenGpio, ListGpio};

}  // namespace vantrellion
