#include "sample_database.h"

#include "catalogue.h"
#include "order.h"
#include "random.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace krv::demo {

namespace {

using platform::Connection;
using platform::Currency;
using platform::Decimal;
using platform::Value;
using platform::ValueView;

constexpr std::string_view customers_table = R"sql(
CREATE TABLE "Clienti" (
    "IdCliente"       INTEGER PRIMARY KEY,
    "RagioneSociale"  VARCHAR(60) NOT NULL,
    "Città"           VARCHAR(40) NOT NULL,
    "Paese"           VARCHAR(30) NOT NULL,
    "Posta"           VARCHAR(80),
    "Fido"            CURRENCY NOT NULL,
    "Attivo"          BOOLEAN NOT NULL
))sql";

constexpr std::string_view articles_table = R"sql(
CREATE TABLE "Articoli" (
    "Codice"          VARCHAR(12) PRIMARY KEY,
    "Descrizione"     VARCHAR(60) NOT NULL,
    "Categoria"       VARCHAR(20) NOT NULL,
    "Prezzo"          CURRENCY NOT NULL,
    "Peso"            REAL,
    "Giacenza"        INTEGER NOT NULL
))sql";

constexpr std::string_view orders_table = R"sql(
CREATE TABLE "Ordini" (
    "Numero"          INTEGER PRIMARY KEY,
    "Data"            DATE NOT NULL,
    "IdCliente"       INTEGER REFERENCES "Clienti",
    "Cliente"         VARCHAR(60) NOT NULL,
    "Codice"          VARCHAR(12) REFERENCES "Articoli",
    "Articolo"        VARCHAR(60) NOT NULL,
    "Quantità"        INTEGER NOT NULL,
    "Prezzo"          CURRENCY NOT NULL,
    "Sconto"          DECIMAL(4,1),
    "Totale"          CURRENCY NOT NULL,
    "Peso"            REAL,
    "Spedito"         BOOLEAN NOT NULL DEFAULT 0,
    "Spedizione"      DATE,
    "Registrato"      DATETIME NOT NULL DEFAULT CURRENT_TIMESTAMP,
    "Note"            TEXT
))sql";

/// Orders that are typed into a list name their customer and article.
constexpr std::string_view new_order_trigger = R"sql(
CREATE TRIGGER "OrdineNuovo" AFTER INSERT ON "Ordini" WHEN new."IdCliente" IS NULL BEGIN
    UPDATE "Ordini" SET
        "IdCliente" = (SELECT "IdCliente" FROM "Clienti" WHERE "RagioneSociale" = new."Cliente"),
        "Codice" = (SELECT "Codice" FROM "Articoli" WHERE "Descrizione" = new."Articolo")
    WHERE "Numero" = new."Numero";
END)sql";

constexpr std::string_view open_orders_view = R"sql(
CREATE VIEW "OrdiniAperti" AS
    SELECT o."Numero", o."Data", o."Cliente", c."Città", o."Articolo", o."Quantità", o."Totale"
    FROM "Ordini" AS o JOIN "Clienti" AS c ON c."IdCliente" = o."IdCliente"
    WHERE NOT o."Spedito"
    ORDER BY o."Numero")sql";

Value text(std::string_view value) {
    return Value(ValueView::text(value));
}

Value whole(std::int32_t value) {
    return Value(ValueView::long_integer(value));
}

Value boolean(bool value) {
    return Value(ValueView::boolean(value));
}

Value null() {
    return Value(ValueView::null());
}

Value money(std::int64_t cents) {
    return Value(ValueView::currency(Currency{cents * 100}));
}

Value tenths(std::int32_t value) {
    return Value(ValueView::decimal(Decimal{static_cast<std::uint64_t>(value), 0, 1, false}));
}

/// Null for what weighs nothing.
Value kilograms(std::int64_t grams) {
    return grams == 0 ? null() : Value(ValueView::double_float(static_cast<double>(grams) / 1000));
}

template <class Text>
Value text_or_null(const std::optional<Text>& value) {
    return value ? text(*value) : null();
}

void insert(Connection& connection, std::string_view table, const std::vector<Value>& values) {
    std::string sql = "INSERT INTO \"" + std::string(table) + "\" VALUES (?";
    for (std::size_t i = 1; i < values.size(); ++i) {
        sql += ", ?";
    }
    connection.Execute(sql + ')', values);
}

void write_customers(Connection& connection) {
    Random random(1);
    connection.Execute(customers_table, {});
    std::int32_t id = 0;
    for (const Customer& customer : customers()) {
        insert(connection,
               "Clienti",
               {whole(++id),
                text(customer.name),
                text(customer.town),
                text(customer.country),
                customer.mail.empty() ? null() : text(customer.mail),
                money(50'000 * (1 + std::int64_t{random.below(20)})),
                boolean(!random.chance(10))});
    }
}

void write_articles(Connection& connection) {
    Random random(2);
    connection.Execute(articles_table, {});
    for (const Article& article : articles()) {
        insert(connection,
               "Articoli",
               {text(article.code),
                text(article.description),
                text(article.category),
                money(article.price_cents),
                kilograms(article.weight_grams),
                whole(static_cast<std::int32_t>(random.below(500)))});
    }
}

void write_order(Connection& connection, const Order& order) {
    const Article& article = *order.article;
    insert(connection,
           "Ordini",
           {whole(order.number),
            text(order.ordered),
            whole(order.customer_id),
            text(order.customer->name),
            text(article.code),
            text(article.description),
            whole(order.quantity),
            money(article.price_cents),
            order.discount_tenths ? tenths(*order.discount_tenths) : null(),
            money(order.total_cents),
            kilograms(std::int64_t{article.weight_grams} * order.quantity),
            boolean(order.shipped.has_value()),
            text_or_null(order.shipped),
            text(order.entered),
            text_or_null(order.remark)});
}

void write_orders(Connection& connection) {
    OrderMaker orders(first_order, order_count);
    connection.Execute(orders_table, {});
    for (std::int32_t i = 0; i < order_count; ++i) {
        write_order(connection, orders.next());
    }
    connection.Execute(new_order_trigger, {});
    connection.Execute(open_orders_view, {});
}

} // namespace

void write_sample(Connection& connection) {
    connection.BeginTrans();
    try {
        write_customers(connection);
        write_articles(connection);
        write_orders(connection);
    } catch (...) {
        connection.RollbackTrans();
        throw;
    }
    connection.CommitTrans();
}

} // namespace krv::demo
