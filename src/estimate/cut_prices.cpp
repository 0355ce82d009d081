#include "velmora/estimate/cut_prices.h"

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

namespace {
constexpr double defaultRate = 0.01;
}

void CutPrices::msCargarPreciosCorte() {
    rsPreciosCorte_ = session_.Connection().execute(
        "Select PARDPI_ID,mat_pcs from materiales inner join art on materiales.mat_id= art.art_mat "
        "inner join PARDPI on art_id = PARDPI_ART where PARDPI_ID>0 ");
}

double CutPrices::FnPrecioCorte(std::string_view nIdPar) {
    runtime::ErrorTrap trap;
    double rate = 0;
    if (trap.condition([&] { return rsPreciosCorte_.recordCount() > 0; })) {
        trap([&] { rsPreciosCorte_.moveFirst(); });
        trap([&] { rsPreciosCorte_.find("PARDPI_ID=" + runtime::CStr(std::int64_t{runtime::CLng(nIdPar)})); });
        trap([&] { rate = rsPreciosCorte_["mat_pcs"].toDouble(); });
    }
    return rate == 0 || trap.failed() ? defaultRate : rate;
}

}  // namespace velmora::estimate
