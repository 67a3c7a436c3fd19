#pragma once

namespace qlon {

// The server sales screen, as the main screen's "Individual Sales" opens it.
class ServerSalesScreen
{
public:
    virtual ~ServerSalesScreen() = default;

    // Shows the screen without blocking, copies the main screen's span into it and adds the
    // servers to its picker.
    virtual void OpenServerSales() = 0;
};

} // namespace qlon
