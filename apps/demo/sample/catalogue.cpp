#include "catalogue.h"

#include <array>

namespace krv::demo {

namespace {

constexpr auto all_customers = std::to_array<Customer>({
    {"Cartoleria Perù & Figli", "Perugia", "Italia", "ordini@cartoleria-peru.example"},
    {"Caffè Libreria Giosuè", "Forlì", "Italia", "giosue@caffe-libreria.example"},
    {"Studio Dell'Acqua", "Cantù", "Italia", "studio@dellacqua.example"},
    {"Libreria L'Angolo", "L'Aquila", "Italia", "info@langolo.example"},
    {"Tipografia San Nicolò", "Treviso", "Italia", "acquisti@sannicolo.example"},
    {"Scuola Primaria «De Amicis»", "Torino", "Italia", "segreteria@deamicis.example"},
    {"Agenzia Viaggi Città Alta", "Bergamo", "Italia", ""},
    {"Notaio Bàrberi", "Catania", "Italia", "studio@barberi.example"},
    {"Ferramenta D'Angelo", "Bari", "Italia", "dangelo@ferramenta.example"},
    {"Cooperativa Verità e Lavoro", "Reggio nell'Emilia", "Italia", "coop@veritalavoro.example"},
    {"Gelateria Dolce Vita 🍦", "Rimini", "Italia", "ciao@dolcevita.example"},
    {"Pasticceria Università", "Bologna", "Italia", ""},
    {"Museo della Carta", "Fabriano", "Italia", "bottega@museocarta.example"},
    {"Hotel Belvedere", "Merano", "Italia", "reception@belvedere.example"},
    {"Officina Nardò", "Nardò", "Italia", "officina@nardo.example"},
    {"Erboristeria Però Sì", "Lucca", "Italia", "pero-si@erboristeria.example"},
    {"Farmacia della Trinità", "Venezia", "Italia", "ordini@trinita.example"},
    {"Circolo Velico Santa Lucia", "Napoli", "Italia", ""},
    {"Ottica Zanè", "Vicenza", "Italia", "zane@ottica.example"},
    {"Vivaio Pré-Saint-Didier", "Aosta", "Italia", "vivaio@presaintdidier.example"},
    {"Müller & Söhne", "München", "Deutschland", "einkauf@mueller-soehne.example"},
    {"Buchhandlung Weiß", "Köln", "Deutschland", "bestellung@weiss.example"},
    {"Schreibwaren Größl", "Wien", "Österreich", "office@groessl.example"},
    {"Papeterie de l'Œuvre", "Besançon", "France", "contact@oeuvre.example"},
    {"Librairie Noël", "Orléans", "France", "noel@librairie.example"},
    {"Señorío de Ávila", "Ávila", "España", "pedidos@senorio.example"},
    {"Papelaria São João", "Évora", "Portugal", "loja@saojoao.example"},
    {"Åkerlund Bygg", "Malmö", "Sverige", "order@akerlund.example"},
    {"Bókabúð Þórs", "Akureyri", "Ísland", "thor@bokabud.example"},
    {"Meble Łódź", "Łódź", "Polska", "biuro@meble.example"},
    {"Papírnictví Dvořák", "Brno", "Česko", "dvorak@papirnictvi.example"},
    {"Kőrösi Könyvesbolt", "Győr", "Magyarország", "bolt@korosi.example"},
    {"Librăria Știința", "Iași", "România", "comenzi@stiinta.example"},
    {"Kırtasiye Işık", "İzmir", "Türkiye", "isik@kirtasiye.example"},
    {"Αθηναϊκό Βιβλιοπωλείο", "Αθήνα", "Ελλάδα", "athina@vivlio.example"},
    {"Χαρτικά Παπαδάκης", "Ηράκλειο", "Ελλάδα", ""},
    {"Книжный дом «Восход»", "Казань", "Россия", "zakaz@voshod.example"},
    {"Книгарня Ґанок", "Львів", "Україна", "hanok@knyharnia.example"},
    {"Книжарница Изток", "Пловдив", "България", "iztok@knizharnitsa.example"},
    {"東京文具店", "東京", "日本", "info@tokyo-bungu.example"},
    {"カフェ・ローマ", "大阪", "日本", "roma@cafe.example"},
    {"上海纸业有限公司", "上海", "中国", "sales@shanghai-paper.example"},
    {"서울문구", "서울", "대한민국", "order@seoul-mungu.example"},
    {"O'Brien & Daughters", "Galway", "Éire", "shop@obrien.example"},
});

constexpr auto all_articles = std::to_array<Article>({
    {"QUA-001", "Quaderno a righe A4, 80 fogli", "Quaderni", 390, 320},
    {"QUA-002", "Quaderno a quadretti A5", "Quaderni", 215, 140},
    {"QUA-003", "Taccuino tascabile, carta avorio", "Quaderni", 850, 110},
    {"QUA-004", "Album da disegno Fabriano 4, 24 fogli", "Quaderni", 1290, 640},
    {"QUA-005", "Registro con copertina rigida", "Quaderni", 1875, 980},
    {"CAR-001", "Risma carta A4 80 g, 500 fogli", "Carta", 499, 2490},
    {"CAR-002", "Carta da lettere vergata, 50 fogli", "Carta", 1120, 260},
    {"CAR-003", "Cartoncino Bristol, 10 colori", "Carta", 675, 410},
    {"CAR-004", "Buste imbottite, confezione da 10", "Carta", 590, 230},
    {"CAR-005", "Carta millimetrata, blocco A3", "Carta", 745, 380},
    {"PEN-001", "Penna a sfera blu, scatola da 50", "Scrittura", 1450, 420},
    {"PEN-002", "Penna stilografica, pennino medio", "Scrittura", 4900, 65},
    {"PEN-003", "Inchiostro nero di seppia, 50 ml", "Scrittura", 1380, 190},
    {"PEN-004", "Matite HB, dozzina", "Scrittura", 480, 95},
    {"PEN-005", "Pastelli a cera, 24 colori", "Scrittura", 920, 310},
    {"PEN-006", "Evidenziatori, 6 colori", "Scrittura", 565, 105},
    {"PEN-007", "Pennello tondo n° 8, pelo di martora", "Scrittura", 2240, 25},
    {"UFF-001", "Cucitrice da tavolo", "Ufficio", 1650, 390},
    {"UFF-002", "Punti metallici 6/4, 5.000 pezzi", "Ufficio", 285, 150},
    {"UFF-003", "Perforatore a due fori", "Ufficio", 1190, 450},
    {"UFF-004", "Forbici in acciaio 21 cm", "Ufficio", 870, 130},
    {"UFF-005", "Nastro adesivo, 8 rotoli", "Ufficio", 640, 280},
    {"UFF-006", "Raccoglitore ad anelli, dorso 8 cm", "Ufficio", 375, 520},
    {"UFF-007", "Calcolatrice da tavolo a 12 cifre", "Ufficio", 2390, 340},
    {"UFF-008", "Etichette adesive, 1.000 pezzi", "Ufficio", 995, 360},
    {"UFF-009", "Timbro datario in italiano", "Ufficio", 1725, 120},
    {"ARR-001", "Lampada da scrivania orientabile", "Arredo", 5990, 2100},
    {"ARR-002", "Sedia girevole con braccioli", "Arredo", 18900, 14500},
    {"ARR-003", "Scaffale in faggio, 5 ripiani", "Arredo", 24950, 28000},
    {"ARR-004", "Cestino gettacarte in rete", "Arredo", 1240, 870},
    {"ARR-005", "Lavagna magnetica 90 × 60 cm", "Arredo", 4475, 3900},
    {"ARR-006", "Orologio da parete Ø 30 cm", "Arredo", 2780, 740},
    {"REG-001", "Segnalibro in cuoio", "Regali", 690, 15},
    {"REG-002", "Agenda settimanale in pelle", "Regali", 3450, 430},
    {"REG-003", "Calendario illustrato", "Regali", 1195, 350},
    {"REG-004", "Sigillo e ceralacca", "Regali", 2650, 240},
    {"REG-005", "Tazza «Però che caffè!»", "Regali", 980, 330},
    {"SRV-001", "Spedizione internazionale", "Servizi", 2500, 0},
});

constexpr auto all_remarks = std::to_array<std::string_view>({
    "Consegnare al mattino",
    "Citofono: «Bàrberi», 2° piano",
    "Cliente abituale: sconto già applicato",
    "Confezione regalo 🎁",
    "Da pagare alla consegna",
    "Fattura elettronica, codice M5UXCR1",
    "Lasciare in portineria",
    "Merce fragile; imballo doppio",
    "Riordino automatico ogni 3 mesi",
    "Ritirare il reso dell'ordine precedente",
});

} // namespace

std::span<const Customer> customers() {
    return all_customers;
}

std::span<const Article> articles() {
    return all_articles;
}

std::span<const std::string_view> remarks() {
    return all_remarks;
}

} // namespace krv::demo
