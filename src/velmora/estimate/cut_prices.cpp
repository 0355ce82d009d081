#include "velmora/estimate/cut_prices.h"

#include <utility>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

namespace {

constexpr double defaultRate = 0.01;

/// A stored rate; 0 for null and for a text that is no number.
double rateOf(const sql::Value& stored) {
    runtime::ErrorTrap trap;
    double rate = 0;
    trap([&] { rate = stored.toDouble(); });
    return rate;
}

}  // namespace

void CutPrices::msCargarPreciosCorte() {
    sql::Recordset read = session_.Connection().execute(
        "Select PARDPI_ID,mat_pcs from materiales inner join art on materiales.mat_id= art.art_mat "
        "inner join PARDPI on art_id = PARDPI_ART where PARDPI_ID>0 ");
    std::map<double, double> rates;
    for (; !read.eof(); read.moveNext()) {
        if (const sql::Value& number = read["PARDPI_ID"]; number.isNumber()) {
            const double material = number.toDouble();
            rates.try_emplace(material, rateOf(read["mat_pcs"]));
        }
    }
    rates_ = std::move(rates);
    last_.reset();
}

/// 0 for a material without a rate, for an unknown one and for a text that is no number.
double CutPrices::ownRate(std::string_view nIdPar) const {
    if (!last_ || last_->key != nIdPar) {
        runtime::ErrorTrap trap;
        double rate = 0;
        trap([&] {
            const auto row = rates_.find(runtime::CLng(nIdPar));
            rate = row == rates_.end() ? 0 : row->second;
        });
        last_ = Answer{std::string(nIdPar), rate};
    }
    return last_->rate;
}

double CutPrices::FnPrecioCorte(std::string_view nIdPar) const {
    const double rate = ownRate(nIdPar);
    return rate == 0 ? defaultRate : rate;
}

bool CutPrices::hasOwnRate(std::string_view nIdPar) const {
    return ownRate(nIdPar) != 0;
}

}  // namespace velmora::estimate
