import java.io.ByteArrayOutputStream;
import java.io.PrintStream;
import java.util.List;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.Phaser;
import java.util.concurrent.TimeUnit;
import java.util.stream.Stream;
import tovu.local.delivery.CallbackDelivery;

/** What the delivery of callbacks prints for the author of a federate, and for whom. */
final class DeliveryTest {
    private static final ByteArrayOutputStream PRINTED = new ByteArrayOutputStream();

    public static void main(String[] arguments) {
        System.setErr(new PrintStream(PRINTED, true));
        Harness.run(DeliveryTest::reminder, DeliveryTest::failure, DeliveryTest::circle);
    }

    private static CallbackDelivery delivery() {
        return CallbackDelivery.toContext(1, (method, message) -> { }, () -> null);
    }

    /** Only who has callbacks waiting and never evoked any is reminded, and that once. */
    private static void reminder() throws Exception {
        CallbackDelivery forgetful = delivery();
        CallbackDelivery evoking = delivery();
        CallbackDelivery disabling = delivery();
        disabling.setEnabled(false);
        for (int posted = 0; posted < 2; ++posted) {
            Stream.of(forgetful, evoking, disabling).forEach(each -> each.post(to -> { }));
            evoking.evoke(0);
        }
        evoking.post(to -> { });
        for (int i = 0; i < 200 && PRINTED.size() == 0; ++i) {
            Thread.sleep(100);
        }
        Thread.sleep(200); // for reminders that should not come
        String start = "A federate that is not joined has callbacks waiting and has evoked none for 1 s";
        assert PRINTED.toString().startsWith(start) && PRINTED.toString().lines().count() == 1 : PRINTED;
    }

    /** A fault of the core's own is told, and costs no callback but the one that it struck. */
    private static void failure() {
        PRINTED.reset();
        CallbackDelivery delivery = delivery();
        delivery.post(to -> {
            throw new IllegalStateException("on purpose");
        });
        delivery.post(to -> System.err.print("next"));
        delivery.evokeMultiple(0, 1);
        assert PRINTED.toString().lines().toList().equals(List.of("A federate that is not joined cannot be told "
                + "something: java.lang.IllegalStateException: on purpose", "next")) : PRINTED;
    }

    /** Callbacks that end the next one's delivery while all of them run: one goes on, and so all do. */
    private static void circle() throws Exception {
        List<CallbackDelivery> deliveries = List.of(delivery(), delivery(), delivery(), delivery());
        Phaser allInside = new Phaser(deliveries.size());
        CountDownLatch returned = new CountDownLatch(deliveries.size());
        for (int i = 0; i < deliveries.size(); ++i) {
            CallbackDelivery next = deliveries.get((i + 1) % deliveries.size());
            deliveries.get(i).post(to -> {
                allInside.arriveAndAwaitAdvance();
                next.close();
                next.awaitEnd();
                returned.countDown();
            });
        }
        deliveries.forEach(CallbackDelivery::deliverImmediately);
        assert returned.await(10, TimeUnit.SECONDS) : "the callbacks wait for each other";
    }
}
