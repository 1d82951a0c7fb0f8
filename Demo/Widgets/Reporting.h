#pragma once

class NotebookWindow;

/// Starts the library with everything that opens its flow, and adds the application's quick facts to its reports. At
/// most one exists at a time: it owns the library's `onPrepareData`.
class Reporting
{
public:
    /// \param window shown already, and outlives this
    explicit Reporting(const NotebookWindow &window);
    ~Reporting();

    Reporting(const Reporting &) = delete;
    Reporting &operator=(const Reporting &) = delete;
};
