#include "velmora/estimate/cut_prices.h"

#include <utility>
#include <vector>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

namespace {
constexpr double defaultRate = 0.01;
}

void CutPrices::msCargarPreciosCorte() {
    sql::Recordset read = session_.Connection().execute(
        "Select PARDPI_ID,mat_pcs from materiales inner join art on materiales.mat_id= art.art_mat "
        "inner join PARDPI on art_id = PARDPI_ART where PARDPI_ID>0 ");
    // Copied, because an engine may read the rows of a set again while they are iterated.
    std::vector<sql::Row> rates;
    for (; !read.eof(); read.moveNext()) {
        rates.push_back({read["PARDPI_ID"], read["mat_pcs"]});
    }
    rsPreciosCorte_ = sql::Recordset(sql::rowsInMemory({{"PARDPI_ID"}, {"mat_pcs"}}, std::move(rates)));
}

/// 0 for a material without a rate and for an unknown one.
double CutPrices::ownRate(std::string_view nIdPar) {
    runtime::ErrorTrap trap;
    double rate = 0;
    if (trap.condition([&] { return rsPreciosCorte_.recordCount() > 0; })) {
        trap([&] { rsPreciosCorte_.moveFirst(); });
        trap([&] { rsPreciosCorte_.find("PARDPI_ID=" + runtime::CStr(std::int64_t{runtime::CLng(nIdPar)})); });
        trap([&] { rate = rsPreciosCorte_["mat_pcs"].toDouble(); });
    }
    return trap.failed() ? 0 : rate;
}

double CutPrices::FnPrecioCorte(std::string_view nIdPar) {
    const double rate = ownRate(nIdPar);
    return rate == 0 ? defaultRate : rate;
}

bool CutPrices::hasOwnRate(std::string_view nIdPar) {
    return ownRate(nIdPar) != 0;
}

}  // namespace velmora::estimate
