-- Orders of a customer; it's "small".
/* A comment
   with select inside */
CREATE TABLE IF NOT EXISTS orders (
    id BIGINT GENERATED ALWAYS AS IDENTITY PRIMARY KEY,
    customer_id INTEGER NOT NULL REFERENCES customers(id) ON DELETE CASCADE,
    note VARCHAR(200) DEFAULT 'it''s -- no comment', -- but this is
    total NUMERIC(10, 2) CHECK (total >= 0.00),
    placed TIMESTAMP WITH TIME ZONE DEFAULT CURRENT_TIMESTAMP
);

with recent as (
    select o.*, row_number() over (partition by customer_id order by placed desc) as rn
    from orders as o
    where o.placed > date '2024-01-01' and o.total between 1.5e2 and 1000
)
select c."Full Name", count(*) as n, coalesce(sum(r.total), 0)
from recent r
left join customers c on c.id = r.customer_id
group by c."Full Name"
having count(*) > 1
union all
SELECT `odd name`, NULL, CASE WHEN TRUE THEN 1 ELSE 0 END FROM dual LIMIT 10;

UPDATE orders SET note = N'x' WHERE id = @id OR id = :id; /* done */ COMMIT;
